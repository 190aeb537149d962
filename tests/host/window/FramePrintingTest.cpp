#include "FrameTest.h"
#include "host/sheet/SheetPages.h"
#include "host/sheet/SheetTexts.h"
#include "look/Look.h"
#include "look/Painted.h"

#include <QFileInfo>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>

namespace ko::test {
namespace {

class FramePrintingTest : public FrameTest {
protected:
    const std::string bench = file("bench.json", oneInstrument);
};

TEST_F(FramePrintingTest, PageAndSheetArePrintedOnThePapersOfThePrinterAndARefusalIsReported)
{
    window.open(KO_DEMO_FOLDER "/engine-bench-demo.json");
    show();
    for (const auto& [paper, box] :
         {std::pair{QPageSize::A4, "/MediaBox [0 0 595"}, {QPageSize::Letter, "/MediaBox [0 0 612"}}) {
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(toQt(folder.file("sheet.pdf")));
        printer.setPageSize(QPageSize(paper));
        window.printing().printSheetOn(printer);
        const QByteArray pdf = QByteArray::fromStdString(readFile(folder.file("sheet.pdf")));
        EXPECT_TRUE(pdf.contains(box));
        EXPECT_GT(pdf.count("/Type /Page\n"), 1);
        printer.setOutputFileName(toQt(folder.file("page.pdf")));
        window.printing().printPageOn(printer);
        EXPECT_GT(QFileInfo(printer.outputFileName()).size(), 1000);
    }
    EXPECT_FALSE(window.findChild<QToolButton*>("reportCount")->isVisible());
    window.open(bench);
    for (const QString& refused : {toQt(folder.file("none/sheet.pdf")), toQt(bench)}) {
        QString told;
        const InDialog<QPrintPreviewDialog> preview([&](QPrintPreviewDialog& dialog) {
            dialog.printer()->setOutputFormat(QPrinter::PdfFormat);
            dialog.printer()->setOutputFileName(refused);
            answer(told);
            dialog.findChild<QPrintPreviewWidget*>()->print();
            window.printing().printPageOn(*dialog.printer());
            dialog.reject();
        });
        window.printing().previewSheet();
        EXPECT_TRUE(told.startsWith(window.text(3368)) && told.contains(refused)) << fromQt(told);
    }
    EXPECT_EQ(loadSetup(bench).instruments.size(), 1U);
    EXPECT_TRUE(window.findChild<QToolButton*>("reportCount")->isVisible());
}

TEST_F(FramePrintingTest, EachPageOfASheetHasItsPartAndItsNumber)
{
    ko::Setup setup;
    setup.instruments.resize(100);
    for (InstrumentSettings& instrument : setup.instruments) {
        instrument.name = "Unit " + std::to_string(&instrument - setup.instruments.data());
        instrument.timebase.emplace();
    }
    window.open(file("large.json", setupText(setup)));
    NotingDevice paper(QSize(700, 1000), 96);
    const SheetPages pages({page(), window.session().drivers(), "T", "large.json", false, {46347.5}, texts, locale},
                           paper, QSizeF(700, 1000));
    ASSERT_GT(pages.count(), 2);
    Look look;
    int number = 0;
    const auto checkPage = [&] {
        const QStringList words = paper.notes.words();
        EXPECT_EQ(words.mid(words.size() - 2).join('|'),
                  QString("Set-up sheet  \u00b7  T  \u00b7  large.json  \u00b7  11/21/2026 12:00:00 PM|Page %1 of %2")
                      .arg(QString::number(++number), QString::number(pages.count())));
        EXPECT_LT(words.filter("Unit").size(), 60) << "a part of them";
        look.add(QStringLiteral("page %1").arg(number), {}, paper.notes.notes);
        paper.notes = {};
    };
    QPainter painter(&paper);
    pages.paint(painter, checkPage);
    checkPage();
    EXPECT_EQ(number, pages.count());
    look.compare("sheet");
}

TEST_F(FramePrintingTest, TheSheetIsExportedAndNeverOverTheOpenSetup)
{
    window.open(bench);
    show();
    QAction& entry = action(hostText::fileMenu, sheetText::exportEntry);
    entry.trigger();
    user.sheet = folder.file("sheet.html");
    entry.trigger();
    EXPECT_NE(readFile(user.sheet).find("bench.json"), std::string::npos);
    const std::string before = readFile(bench);
    for (const std::string& refused : {bench, folder.file("none/sheet.pdf")}) {
        user.sheet = refused;
        QString told;
        answer(told);
        entry.trigger();
        EXPECT_TRUE(told.contains(toQt(refused))) << fromQt(told);
    }
    EXPECT_EQ(readFile(bench), before);
}

} // namespace
} // namespace ko::test
