#include "FrameTest.h"
#include "host/docks/FailureStrip.h"
#include "host/docks/InstrumentGallery.h"
#include "host/instruments/SimulatedAcquisition.h"
#include "host/properties/PropertiesDialog.h"

#include <set>

namespace ko::test {
namespace {

/// Has one device, "scope", with the option "range", which takes "low" and "high". It can be open once.
class Bench final : public DeviceSource {
public:
    bool isThere = true;
    int open_ = 0;
    std::vector<double> periods{0.001, 0.002, 0.005};

    std::vector<KnownDevice> find() override
    {
        return {{"bench", "scope", "Bench scope", {}}, {"broken.so", {}, {}, "cannot be loaded"}};
    }
    std::unique_ptr<Instrument> open(const std::string& module, const std::string& device,
                                     const DeviceOptions& options) override
    {
        const std::string range = options.contains("range") ? options.at("range") : "low";
        if (module != "bench" || device != "scope" || !isThere || open_ > 0)
            throw Failure(failure::unspecified, open_ > 0 ? "is in use" : "is unplugged");
        if (range != "low" && range != "high")
            throw Failure(failure::unspecified, "range: takes low or high, not " + range);
        InstrumentSettings held;
        held.options = {{"range", range}};
        held.timebase.emplace().samplePeriod.choices = periods;
        auto& channels = held.groups.emplace_back(GroupSettings{"Inputs", {}}).channels;
        channels.resize(2);
        channels[0].address = "1:0";
        channels[1].address = "1:1";
        return std::make_unique<Scope>(std::move(held), open_);
    }

private:
    class Scope final : public KeptInstrument {
    public:
        Scope(InstrumentSettings settings, int& open) : KeptInstrument(std::move(settings)), open_(open) { ++open_; }
        ~Scope() override { --open_; }
        Acquisition* acquisition() override { return &acquisition_; }

    private:
        int& open_;
        SimulatedAcquisition acquisition_{held()};
    };
};

class DevicesTest : public FrameTest {
protected:
    std::shared_ptr<Bench> bench = std::make_shared<Bench>();
    QTreeView& tree = *window.instruments().findChild<QTreeView*>();
    QWidget& strip = *window.findChild<QWidget*>("failures");

    void SetUp() override { window.session().devices = bench; }
    void open(const char* members, const char* others = "")
    {
        FrameTest::open(R"({"drivers": [{"name": "Mine", "module": "bench", "device": "scope")" + std::string(members) +
                        "}" + others + "]}");
        show();
    }
    const InstrumentSettings& held() { return driver().held(); }
};

TEST_F(DevicesTest, AMissingDeviceFailsKeepsItsSettingsAndComesBackOnTryAgain)
{
    bench->isThere = false;
    open(R"(, "options": {"range": "high"}, "timebase": {"samplePeriod": {"value": 0.002}, "duration": 3},
           "groups": [{"name": "g", "channels": [{"address": "1:1", "name": "Crank", "enabled": 0}]}])");
    EXPECT_TRUE(strip.findChild<QListWidget*>()->item(0)->text().contains("Mine"));
    EXPECT_TRUE(strip.findChild<QListWidget*>()->item(0)->text().contains("bench scope: is unplugged"));
    user.saveAs = folder.file("saved.json");
    window.files().saveAs();
    const auto saved = loadSetup(user.saveAs);
    EXPECT_EQ(saved.instruments[0].options, (DeviceOptions{{"range", "high"}}));
    EXPECT_EQ(saved.instruments[0].groups[0].channels[0].name, "Crank");

    bench->isThere = true;
    strip.findChild<QPushButton*>("tryAgain")->click();
    EXPECT_EQ(bench->open_, 1);
    EXPECT_EQ(page().cmbSamplePeriod.text(), "0.002");
    EXPECT_EQ(page().txtDuration.text(), "3");
    EXPECT_EQ(held().groups[0].channels[1].name, "Crank");
    EXPECT_FALSE(held().groups[0].channels[1].isEnabled());
    EXPECT_TRUE(held().groups[0].channels[0].isEnabled());
    EXPECT_TRUE(window.history().history().steps().empty()) << "what the device offers is no edit";
    for (const DriverFailure& failure : window.docks().health().failing())
        ADD_FAILURE() << failingName(failure.operation) << failure.reason;

    open("");
    EXPECT_EQ(bench->open_, 1) << "the other set-up's is closed first";
    EXPECT_EQ(page().cmbSamplePeriod.text(), "0.001");
    window.files().close();
    EXPECT_EQ(bench->open_, 0);
}

TEST_F(DevicesTest, ADeviceThatComesBackToBeRecordedIsNoEditAndIsShownAfterwards)
{
    const struct {
        void (FrameRecording::*begin)();
        const char* others;
    } cases[]{{&FrameRecording::monitor, ""},
              {&FrameRecording::record, ""},
              {&FrameRecording::record, R"(, {"name": "Lost", "module": "bench", "device": "none", "timebase": {},
                   "groups": [{"name": "g", "channels": [{"address": "1:1"}]}]})"}};
    for (const auto& it : cases) {
        bench->isThere = false;
        open(R"(, "timebase": {"samplePeriod": {"value": 0.002}, "duration": 0.1},
             "groups": [{"name": "g", "channels": [{"address": "1:1"}]}])",
             it.others);
        bench->isThere = true;
        bench->periods.push_back(0.1);
        user.record = folder.file("out.h5");
        user.told.clear();
        (window.recording().*it.begin)();
        EXPECT_EQ(window.recording().isActive(), *it.others == '\0') << user.told;
        window.recording().stop();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !window.recording().isActive(); }));
        EXPECT_EQ(user.told.substr(0, 20), *it.others ? "Lost: bench none: is" : "");
        EXPECT_EQ(page().cmbSamplePeriod.items().size(), bench->periods.size());
        EXPECT_EQ(page().cmbSamplePeriod.text(), "0.002");
        EXPECT_TRUE(window.history().history().steps().empty());
        EXPECT_FALSE(page().readOnly);
        for (const DriverFailure& failure : window.docks().health().failing())
            EXPECT_EQ(failure.name, "Lost") << failingName(failure.operation) << failure.reason;
    }
}

TEST_F(DevicesTest, TheGalleryAddsAFoundDeviceAsOneStepThatClosesItWhenUndone)
{
    action(hostText::viewMenu, hostText::instruments).trigger();
    window.session().begin("empty");
    show();
    const InDialog<InstrumentGallery> choose([](InstrumentGallery& gallery) {
        auto& list = *gallery.findChild<QListWidget*>();
        ASSERT_TRUE(QTest::qWaitFor([&] { return list.item(list.count() - 1)->text().contains("broken.so"); }));
        EXPECT_FALSE(list.item(list.count() - 1)->flags().testFlag(Qt::ItemIsEnabled));
        list.setCurrentRow(list.count() - 3);
        QTest::keyClick(&list, Qt::Key_Down);
        EXPECT_EQ(fromQt(list.currentItem()->text()), "Bench scope\nDriver module bench: scope");
        QTest::keyClick(&list, Qt::Key_Return);
    });
    tree.setFocus();
    QTest::keyClick(&tree, Qt::Key_Insert);
    ASSERT_EQ(window.session().drivers().size(), 1U);
    EXPECT_EQ(held().name, "Bench scope");
    EXPECT_EQ(held().device, "scope");
    EXPECT_EQ(held().groups[0].channels.size(), 2U);
    EXPECT_EQ(bench->open_, 1);
    EXPECT_TRUE(window.session().isChanged());
    window.history().undo();
    EXPECT_TRUE(window.session().drivers().empty());
    EXPECT_EQ(bench->open_, 0);
    window.history().redo();
    EXPECT_EQ(bench->open_, 1);
    EXPECT_EQ(held().groups[0].channels.size(), 2U);

    const InstrumentSettings before = held();
    driver().queryTimebase()->setSamplePeriod(0.002);
    EXPECT_NE(held(), before);
    driver().restore(before);
    EXPECT_EQ(held(), before);
    EXPECT_EQ(driver().queryTimebase()->SamplePeriod(), before.timebase->samplePeriod.value) << "the device takes part";
}

TEST_F(DevicesTest, OptionsAreSetInThePropertiesAndARefusedOneChangesNothing)
{
    open("");
    action(hostText::viewMenu, hostText::instruments).trigger();
    const auto set = [&](const char* range) {
        tree.setFocus();
        tree.setCurrentIndex(tree.model()->index(0, 0));
        QTest::keyClick(&tree, Qt::Key_Return, Qt::AltModifier);
        auto* const dialog = window.findChild<PropertiesDialog*>();
        auto* const box = dialog ? dialog->findChild<QLineEdit*>("options.range") : nullptr;
        ASSERT_NE(box, nullptr);
        box->setText(range);
        dialog->accept();
        dialog->reject();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    set("high");
    EXPECT_EQ(held().options.at("range"), "high");
    EXPECT_EQ(bench->open_, 1);
    QString told;
    answer(told);
    set("odd");
    EXPECT_TRUE(told.contains("range: takes low or high, not odd")) << told.toStdString();
    EXPECT_EQ(held().options.at("range"), "high");
    EXPECT_EQ(bench->open_, 1);
    answer(told);
    window.instruments().editing().edit([](ko::Setup& setup) { setup.instruments[0].groups[0].channels.pop_back(); });
    EXPECT_TRUE(told.contains("groups and channels of its device")) << told.toStdString();
    window.history().undo();
    EXPECT_EQ(held().options.at("range"), "low");
}

} // namespace
} // namespace ko::test
