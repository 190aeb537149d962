#include "host/window/FramePrinting.h"

#include "host/setup/SetupSession.h"
#include "host/sheet/SheetFile.h"
#include "host/sheet/SheetPages.h"
#include "host/sheet/SheetTexts.h"
#include "host/support/FileWriter.h"
#include "host/support/HostTexts.h"
#include "host/support/InputError.h"
#include "host/window/PageHost.h"
#include "host/window/UserQuestions.h"
#include "widgets/services/PdfDetour.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Modal.h"
#include "widgets/support/ShownText.h"

#include <QPrintDialog>
#include <QPrintPreviewDialog>

namespace ko {

FramePrinting::FramePrinting(QWidget& window, const UserActions& actions, FrameParts& parts, PageHost& page,
                             const SetupSession& session)
    : window_(window), actions_(actions), parts_(parts), page_(page), session_(session)
{
    parts.services.printers.savePdf = [this](const QString& file, const QByteArray& content) {
        savePdf(file, content);
    };
    parts.services.printers.surroundings = [this]() -> QtPrinters::Surroundings {
        const SheetSource shown = sheet();
        return {sheetCaption(shown), toShown(shown.page.lblPlan.caption())};
    };
}

FramePrinting::~FramePrinting()
{
    parts_.services.printers.surroundings = nullptr;
    parts_.services.printers.savePdf = nullptr;
}

void FramePrinting::printPage()
{
    QPrinter printer(QPrinter::HighResolution);
    if (!Modal<QPrintDialog>(&printer, &window_).isAccepted())
        return;
    const bool toFile = printer.outputFormat() == QPrinter::PdfFormat;
    if (toFile)
        parts_.services.printers.setPdfFile(printer.outputFileName());
    const std::string name = toFile ? QtPrinters::pdfName : fromQt(printer.printerName());
    page_.document().print().DefaultPrint(name, settingsOf(printer));
}

void FramePrinting::previewPage()
{
    preview(&FramePrinting::printPageOn);
}

void FramePrinting::previewSheet()
{
    if (page_.okToLeave())
        preview(&FramePrinting::printSheetOn);
}

void FramePrinting::preview(void (FramePrinting::*paint)(QPrinter& printer))
{
    QPrinter printer(QPrinter::HighResolution);
    Modal<QPrintPreviewDialog> dialog(&printer, &window_);
    dialog->resize(window_.size().expandedTo(dialog->sizeHint()));
    onSignal(dialog.get(), &QPrintPreviewDialog::paintRequested, &window_,
             [this, paint](QPrinter* asked) { (this->*paint)(*asked); });
    dialog.wait();
}

void FramePrinting::printPageOn(QPrinter& printer)
{
    const QtPrinters::Lent lent(parts_.services.printers, printer);
    page_.document().print().DefaultPrint(fromQt(printer.printerName()), settingsOf(printer));
}

void FramePrinting::printSheet()
{
    if (!page_.okToLeave())
        return;
    QPrinter printer(QPrinter::HighResolution);
    if (Modal<QPrintDialog>(&printer, &window_).isAccepted())
        printSheetOn(printer);
}

SheetSource FramePrinting::sheet()
{
    return {.page = page_.document().page(),
            .drivers = session_.drivers(),
            .title = session_.title(),
            .file = session_.isOpen() ? session_.name() : std::string(),
            .isChanged = session_.isChanged(),
            .made = parts_.services.clock.now(),
            .texts = parts_.texts(),
            .locale = parts_.platform.locale};
}

void FramePrinting::printSheetOn(QPrinter& printer)
{
    const UserActions::Action action(actions_);
    const PdfDetour detour(printer);
    QString reason;
    bool isPrinted = ko::printSheet(sheet(), printer);
    try {
        if (!detour.file().isEmpty())
            savePdf(detour.file(), isPrinted ? detour.content() : QByteArray());
    } catch (const InputError& error) {
        isPrinted = false;
        reason = toQt(error.what());
    }
    if (!isPrinted)
        complainBy(sheetText::notPrinted, reason);
}

void FramePrinting::exportSheet(UserQuestions& questions)
{
    const UserActions::Action action(actions_);
    if (!page_.okToLeave())
        return;
    const std::string file = questions.fileForSheet();
    if (file.empty())
        return;
    try {
        parts_.refuseOwn(file);
        saveSheet(file, sheet(), {});
    } catch (const InputError& error) {
        complainBy(sheetText::notExported, toQt(error.what()));
    }
}

void FramePrinting::complainBy(int text, const QString& reason)
{
    Modal<PlainBox>(QMessageBox::Warning, parts_.text(hostText::product), parts_.text(text), reason, QMessageBox::Ok,
                    &window_)
        .wait();
}

void FramePrinting::savePdf(const QString& file, const QByteArray& content) const
{
    const std::string name = fromQt(file);
    parts_.refuseOwn(name);
    if (content.isEmpty())
        throw InputError(name + ": cannot be saved: there is no room for a temporary file");
    writeWhole(name, content.toStdString());
}

} // namespace ko
