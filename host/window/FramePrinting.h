#pragma once

#include "host/sheet/SetupSheet.h"
#include "widgets/support/UserActions.h"

class QByteArray;
class QPrinter;
class QWidget;

namespace ko {

struct FrameParts;
class PageHost;
class SetupSession;
class UserQuestions;

/// Prints the page and the set-up sheet of a frame window, to printers and files, and shows the
/// print previews.
class FramePrinting {
public:
    /// All arguments must outlive this object.
    FramePrinting(QWidget& window, const UserActions& actions, FrameParts& parts, PageHost& page,
                  const SetupSession& session);
    ~FramePrinting();
    FramePrinting(const FramePrinting&) = delete;
    FramePrinting& operator=(const FramePrinting&) = delete;

    /// Asks the user for a printer and prints the page.
    void printPage();
    void previewPage();
    /// Asks the user for a printer and prints the set-up sheet.
    void printSheet();
    void previewSheet();
    /// Asks the user for a file and writes the set-up sheet to it. Shows a message if that fails.
    void exportSheet(UserQuestions& questions);

    /// Prints the page on a printer that is already set up, such as that of a preview.
    void printPageOn(QPrinter& printer);
    /// Prints the set-up sheet on a printer that is already set up. Shows a message if that fails.
    void printSheetOn(QPrinter& printer);
    /// Returns the present content of a set-up sheet.
    [[nodiscard]] SheetSource sheet();

private:
    /// Writes a PDF file. Throws an `InputError` if it cannot be written, or if the window itself uses the file.
    void savePdf(const QString& file, const QByteArray& content) const;
    void preview(void (FramePrinting::*paint)(QPrinter& printer));
    void complainBy(int text, const QString& reason);

    QWidget& window_;
    const UserActions& actions_;
    FrameParts& parts_;
    PageHost& page_;
    const SetupSession& session_;
};

} // namespace ko
