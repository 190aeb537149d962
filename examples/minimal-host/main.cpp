#include "Instrument.h"
#include "Machine.h"

#include "document/ClassFactory.h"

struct Changes : ko::PropertyNotifySink {
    void OnChanged() override { std::cout << "changed\n"; }
};

int main()
{
    Machine machine;
    Changes changes;
    const auto instrument = std::make_shared<Instrument>();
    const std::unique_ptr<ko::Component> component(createKoTimebaseEditor(machine.platform(), ""));
    const std::unique_ptr<ko::Document> document = component->createDocument(changes);
    document->drivers().setNumberOfDrivers(1);
    document->drivers().setDrivers({instrument});
    document->drivers().DriversHaveChanged();
    document->UserDocument_Show();
    document->page().txtSampleRate.userReplaced("5000", 4, 0);
    std::cout << document->page().lblSpan.caption() << ' ' << document->page().lblSpanValue.caption() << '\n'
              << "sample period " << instrument->SamplePeriod() << '\n';
}
