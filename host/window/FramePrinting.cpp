#include "host/window/FramePrinting.h"

#include "host/setup/SetupSession.h"
#include "host/sheet/SheetPages.h"
#include "host/sheet/SheetTexts.h"
#include "host/support/FileWriter.h"
#include "host/support/HostTexts.h"
#include "host/support/InputError.h"
#include "host/window/FrameCapture.h"
#include "host/window/PageHost.h"
#include "widgets/services/PdfDetour.h"
#include "widgets/support/Modal.h"

#include <QPrintDialog>
#include <QPrintPreviewDialog>

namespace ko {

FramePrinting::FramePrinting(QWidget& window, const UserActions& actions, FrameParts& parts, PageHost& page,
                             const SetupSession& session, const FrameCapture& capture)
    : window_(window), actions_(actions), parts_(parts), page_(page), session_(session), capture_(capture)
{
    parts.services.printers.savePdf = [this](const QString& file, const QByteArray& content) {
        savePdf(file, content);
    };
}

FramePrinting::~FramePrinting()
{
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
    QPrinter printer(QPrinter::HighResolution);
    Modal<QPrintPreviewDialog> dialog(&printer, &window_);
    dialog->resize(window_.size().expandedTo(dialog->sizeHint()));
    onSignal(dialog.get(), &QPrintPreviewDialog::paintRequested, &window_,
             [this](QPrinter* asked) { printPageOn(*asked); });
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
            .file = session_.name(),
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
        if (isPrinted && !detour.file().isEmpty())
            savePdf(detour.file(), detour.content());
    } catch (const InputError& error) {
        isPrinted = false;
        reason = toQt(error.what());
    }
    if (!isPrinted)
        Modal<PlainBox>(QMessageBox::Warning, parts_.text(hostText::product), parts_.text(sheetText::notPrinted),
                        reason, QMessageBox::Ok, &window_)
            .wait();
}

void FramePrinting::savePdf(const QString& file, const QByteArray& content)
{
    const std::string name = fromQt(file);
    session_.refuseOwn(name);
    capture_.refuseOwn(name);
    if (content.isEmpty())
        throw InputError(name + ": cannot be saved: there is no room for a temporary file");
    writeWhole(name, content.toStdString());
}

} // namespace ko
