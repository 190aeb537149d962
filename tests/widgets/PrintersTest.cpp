#include "fakes/Thrown.h"
#include "look/Painted.h"
#include "platform/Form.h"
#include "widgets/services/QtServices.h"

#include <QFile>
#include <QLabel>
#include <QPrinterInfo>
#include <QPushButton>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>

namespace ko::test {
namespace {

TEST(QtPrinters, SettingsReachThePrinterAndComeBackInTheCodesOfTheSystem)
{
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat); // which has no duplex mode
    for (const DeviceMode& mode : {DeviceMode{2, 2, 1, 2, 1, 300}, DeviceMode{1, 1, 1, 1, 9, 600}}) {
        applySettings(printer, mode);
        EXPECT_EQ(settingsOf(printer), mode);
    }
    for (const auto& [quality, dots] : {std::pair(-1, 150), {-2, 300}, {-3, 600}, {-4, 1200}, {0, 600}, {75, 75}}) {
        DeviceMode mode;
        mode.copies = quality; // a number that no printer takes counts as one
        mode.printQuality = quality;
        applySettings(printer, mode);
        EXPECT_EQ(printer.resolution(), dots) << quality;
        EXPECT_EQ(printer.copyCount(), std::max(1, quality));
    }
    DeviceMode mode = settingsOf(printer);
    const std::int32_t paper = mode.paperSize;
    mode.paperSize = 12345;
    applySettings(printer, mode);
    EXPECT_EQ(settingsOf(printer).paperSize, paper) << "an unknown paper is left as it is";
}

/// Prints a widget with a text and a button to a PDF file.
class PrintTest : public testing::Test {
protected:
    Form form{"Shown"};
    QWidget surface;
    QLabel label{"Label", &surface};
    QPushButton button{"Button", &surface};
    QtPrinters printers{[this](const Form& asked) { return &asked == &form ? &surface : nullptr; }};
    QTemporaryDir folder;
    std::vector<std::pair<QString, QByteArray>> saved;

    void SetUp() override
    {
        surface.resize(200, 100);
        button.move(100, 50);
        printers.savePdf = [this](const QString& file, const QByteArray& content) {
            saved.emplace_back(file, content);
        };
        printers.setPdfFile(folder.filePath("out.pdf"));
        printers.makeCurrent(printers.count() - 1);
    }
};

TEST_F(PrintTest, EachFormIsAPageOfOneDocumentAndTheNextDocumentIsAnother)
{
    EXPECT_THROW(QtPrinters([](const Form&) { return nullptr; }).printForm(form), Failure);
    printers.setPaperSize(1);
    printers.setOrientation(2);
    printers.surroundings = [] { return QtPrinters::Surroundings{"above", "below"}; };
    for (const int pages : {1, 3}) {
        for (int page = 0; page < pages; ++page)
            printers.printForm(form);
        EXPECT_TRUE(saved.empty());
        printers.endDocument();
        ASSERT_EQ(saved.size(), 1U);
        EXPECT_EQ(saved[0].first, folder.filePath("out.pdf"));
        EXPECT_EQ(saved[0].second.count("/Type /Page\n"), pages);
        EXPECT_TRUE(saved[0].second.contains("/MediaBox [0 0 792")) << "landscape Letter";
        saved.clear();
    }
    printers.endDocument();
    EXPECT_TRUE(saved.empty()) << "there is no document";
}

TEST_F(PrintTest, WhatCannotBePrintedFailsWithTheReason)
{
    const Form other("Other");
    EXPECT_EQ(failureOf([&] { printers.printForm(other); }), failure::invalidCall);
    EXPECT_EQ(failureOf([&] { printers.makeCurrent(printers.count()); }), failure::subscriptOutOfRange);
    EXPECT_EQ(failureOf([&] { printers.makeCurrent(-1); }), failure::subscriptOutOfRange);
    printers.savePdf = [](const QString&, const QByteArray&) { throw std::runtime_error("the disk is full"); };
    printers.printForm(form);
    try {
        printers.endDocument();
        FAIL();
    } catch (const Failure& error) {
        EXPECT_EQ(error.number(), 482);
        EXPECT_STREQ(error.what(), "the disk is full");
    }
    printers.setPdfFile(QString());
    EXPECT_EQ(failureOf([&] { printers.printForm(form); }), 482);
    printers.endDocument();
    EXPECT_EQ(printers.count(), static_cast<std::int32_t>(QPrinterInfo::availablePrinterNames().size()) + 1);
}

/// A printer that only takes notes.
struct Engines {
    QPrinter real;
    NotingDevice device{QSize(), 0};
};
struct NotingPrinter : Engines, QPrinter {
    NotingPrinter()
    {
        real.setOutputFormat(QPrinter::PdfFormat);
        setEngines(real.printEngine(), device.paintEngine());
    }
};

TEST_F(PrintTest, TheTextsAreAboveAndBelowTheFormWhichGetsTheRestOfTheSheet)
{
    printers.surroundings = [] { return QtPrinters::Surroundings{"above", "below"}; };
    for (const bool isHigh : {false, true}) {
        surface.resize(100, isHigh ? 10000 : 50);
        NotingPrinter paper;
        const QtPrinters::Lent during(printers, paper);
        printers.printForm(form);
        printers.endDocument();
        const Painted& notes = paper.device.notes;
        EXPECT_EQ(notes.words(), (QStringList{"above", "Label", "below"}));
        const QSizeF sheet = paper.pageLayout().paintRectPixels(paper.resolution()).size();
        const double line = notes.texts[0].box.height(), drawn = isHigh ? sheet.height() - 4 * line : sheet.width() / 2;
        EXPECT_NEAR(line * 72.0 / paper.resolution(), 11.6, 0.5) << "10 points";
        EXPECT_NEAR(notes.texts[0].box.top(), 0.0, 1.0);
        EXPECT_NEAR(notes.texts[2].box.top(), 3 * line + drawn, 4.0);
        EXPECT_NEAR(notes.texts[2].box.left(), 0.0, 1.0);
    }
}

TEST_F(PrintTest, ALentPrinterIsUsedAsItIs)
{
    QPrinter lent;
    lent.setOutputFormat(QPrinter::PdfFormat);
    lent.setOutputFileName(folder.filePath("lent.pdf"));
    lent.setPageOrientation(QPageLayout::Landscape);
    {
        const QtPrinters::Lent during(printers, lent);
        printers.printForm(form);
        EXPECT_NE(lent.outputFileName(), folder.filePath("lent.pdf")) << "by a detour";
        printers.endDocument();
    }
    EXPECT_EQ(lent.outputFileName(), folder.filePath("lent.pdf"));
    EXPECT_FALSE(QFile::exists(folder.filePath("lent.pdf")));
    ASSERT_EQ(saved.size(), 1U);
    EXPECT_EQ(saved[0].first, folder.filePath("lent.pdf"));
    const QByteArray box = saved[0].second.mid(saved[0].second.indexOf("/MediaBox [0 0 ") + 15, 12).trimmed();
    EXPECT_GT(box.split(' ')[0].toDouble(), 700.0) << "landscape";
    QPainter busy(&lent);
    const QtPrinters::Lent during(printers, lent);
    EXPECT_THROW(printers.printForm(form), Failure);
    EXPECT_EQ(saved.back(), std::pair(folder.filePath("lent.pdf"), QByteArray())) << "refused by the one who saves";
}

TEST_F(PrintTest, AFormFillsItsSpaceInProportionWithoutButtonsOnWhite)
{
    struct Case {
        QRectF space, taken;
    };
    for (const auto& [space, taken] :
         {Case{{10, 20, 400, 400}, {10, 20, 400, 200}}, Case{{0, 0, 400, 100}, {0, 0, 200, 100}}})
        for (const int dots : {96, 192}) {
            NotingDevice device(QSize(1000, 1000), dots);
            QPainter painter(&device);
            const QPalette before = surface.palette();
            EXPECT_EQ(drawScaled(painter, surface, space), taken);
            EXPECT_EQ(surface.palette(), before);
            painter.end();
            EXPECT_EQ(device.notes.words(), QStringList{"Label"});
            const double scale = taken.width() / surface.width();
            EXPECT_NEAR(device.notes.texts[0].box.left(), space.left() + label.x() * scale, 2.0 * scale) << dots;
            EXPECT_NEAR(device.notes.texts[0].box.top(), space.top() + (label.y() + 8) * scale, 8.0 * scale) << dots;
        }
    QPalette dark = surface.palette();
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    surface.setPalette(dark);
    NotingDevice device(QSize(400, 200), 96);
    QPainter painter(&device);
    drawScaled(painter, surface, QRectF(0, 0, 400, 200));
    painter.end();
    EXPECT_LT(device.notes.texts.at(0).pen.color().lightness(), 128) << "dark on paper, whatever the theme";
}

} // namespace
} // namespace ko::test
