#include "host/sheet/SetupSheet.h"

#include "host/scenario/PlayedScenario.h"
#include "host/settings/HeadlessPage.h"
#include "host/sheet/SheetFile.h"
#include "host/sheet/SheetPages.h"
#include "host/support/InputError.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextTable>
#include <QXmlStreamReader>

namespace ko::test {
namespace {

/// A page without a window and the sheet of its set-up.
class SetupSheetTest : public testing::Test {
protected:
    static HeadlessPage played(const std::string& setup)
    {
        return HeadlessPage({.setup = parseSetup(setup, "bench.json"), .folder = {}, .locale = {}, .language = {}});
    }
    static QString sheetOf(HeadlessPage& page, const std::string& title, bool isChanged = false)
    {
        return setupSheet(sourceOf(page, title, isChanged));
    }
    static SheetSource sourceOf(HeadlessPage& page, const std::string& title, bool isChanged = false)
    {
        return {.page = page.page(),
                .drivers = page.drivers(),
                .title = title,
                .file = "bench & co.json",
                .isChanged = isChanged,
                .made = page.now(),
                .texts = [&page](int number) { return toQt(page.text(number)); },
                .locale = {}};
    }
    /// Returns the headings, paragraphs and rows, "name|value", a line each.
    static QStringList rowsOf(const QString& sheet)
    {
        QXmlStreamReader reader(sheet.mid(sheet.indexOf("<body")));
        QStringList rows, cells;
        while (!reader.atEnd() && !(reader.readNext() == QXmlStreamReader::EndElement && reader.name() == u"body")) {
            const bool isCell = reader.name() == u"td" || reader.name() == u"th";
            if (reader.isEndElement() && reader.name() == u"tr")
                rows << std::exchange(cells, {}).join('|');
            else if (reader.isStartElement() && (isCell || reader.name() == u"p" || reader.name().startsWith(u'h')))
                (isCell ? cells : rows) << (isCell ? "" : reader.name().toString() + u' ') + reader.readElementText();
        }
        EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
        return rows;
    }
};

const char* const printedBench = R"({"clock": "2026-11-21 09:30:00", "title": "Bench <2>", "drivers": [
  {"name": "Digitizer \"A\" & B", "groups": [{"name": "In", "channels": [
     {"address": "0:3:1", "name": "Crank <1>", "triggerSource": true, "triggerParameters": [
       {"id": 2, "name": "Level", "type": "Float", "value": 0.5},
       {"id": 5, "name": "Filter", "type": "Bool", "value": true},
       {"id": 7, "name": "Remark", "type": "String", "value": "a<b>&c"}]},
     {"address": "0:3:2", "enabled": 0, "canTrigger": false}]}],
   "timebase": {"samplePeriod": {"value": 0.001}, "startMode": 2, "duration": 90},
   "triggerLines": {"startMasterRank": 5, "startLinesAsMaster": [3]}},
  {"name": "Scanner", "measurementMode": 2, "groups": [{"name": "T", "channels": [{"address": "2:1"}]}],
   "timebase": {"scanPeriod": {"value": 0.5}, "duration": 90}},
  {"name": "Odd one"}]})";

TEST_F(SetupSheetTest, ASheetHoldsEverythingThatIsSetAndEscapesWhatItQuotes)
{
    HeadlessPage page = played(printedBench);
    // Values in the line of their heading.
    const QString shown = rowsOf(sheetOf(page, "Bench <2>"))
                              .join('\n')
                              .replace(QRegularExpression("\n(?=[^|\n]*\\|[^|\n]*(\n|$))"), " / ");
    EXPECT_EQ("\n" + shown.toStdString(), R"(
h1 Set-up sheet: Bench <2> / Set-up file|bench & co.json / Date|11/21/2026 9:30:00 AM
h2 Plan
p Starts on trigger at Crank <1> (Level 0.5), records 1.5 min, 90,112 samples, 352.41 KB dynamic and 1.34 KB static, ends about 1 min 31 s later.
h2 Dynamic Measurements / Sample Rate (Sa/s)|1000 / Sample Period (s)|0.001 / Blocksize|0 / Span|390.625 Hz / No. of Samples|90112 / Disk Space Required|352.41 KB
h2 Static Measurements / Scan Rate (Sc/s)|2 / Scan Period (s)|0.5 / No. of Scans|181 / Disk Space Required|1.34 KB
h2 Start and stop / Start|On Trigger / Trigger Channel|Crank <1> / Level|0.5 / Filter|Yes / Remark|a<b>&c / Duration|1.5 minutes / Actual Duration|1.51 minutes
h2 Instruments
h3 Timebase
Instrument|Sample period|Block size|Scan period|Start|Start time|Stop|Duration
Digitizer "A" & B|0.001 s|1024|0.5 s|On trigger|–|After the duration|90 s
Scanner|0.001 s|1024|0.5 s|On trigger|–|After the duration|90 s
Odd one|–|–|–|–|–|–|–
h3 Trigger lines
Instrument|Rank as start master|Start trigger line|Start trigger input|Rank as sync master|Sync trigger line|Sync trigger input
Digitizer "A" & B|5|–|–|–|–|–
Scanner|–|–|–|–|–|–
Odd one|–|–|–|–|–|–
h2 Channels
h3 Digitizer "A" & B
Group|Channel|Recorded|Trigger source|Trigger parameters
In|Crank <1> (0:3:1)|Yes|Yes|Level: 0.5; Filter: Yes; Remark: a<b>&c
In|0:3:2|No|–|–
h3 Scanner
Group|Channel|Recorded|Trigger source|Trigger parameters
T|2:1|Yes|No|–)");
}

TEST_F(SetupSheetTest, ASheetSaysWhatTheFileDoesNotHoldAndFollowsTheSchedule)
{
    HeadlessPage page = played(printedBench);
    page.page().optStartTime.userClicked();
    page.page().optStopTime.userClicked();
    const QStringList rows = rowsOf(sheetOf(page, "x", true));
    for (const char* row : {"Set-up file|bench & co.json (with changes that are not saved)", "Start|At Time",
                            "Start time|9:30:00 AM", "Stop|9:31:30 AM"})
        EXPECT_TRUE(rows.contains(row)) << row << "\n" << rows.join('\n').toStdString();
    EXPECT_FALSE(rows.contains("Trigger Channel|Crank <1>"));
    const auto rowsWith = [](const char* old, const char* with) {
        HeadlessPage changed = played(toQt(printedBench).replace(old, with).toStdString());
        return rowsOf(sheetOf(changed, "x"));
    };
    const QStringList failing =
        rowsWith("\"timebase\": {\"samplePeriod\"",
                 R"("failing": ["StartMode get", "Duration get"], "timebase": {"samplePeriod")");
    EXPECT_TRUE(failing.contains("Start|\u2013") && failing.contains("Duration|\u2013"));
    EXPECT_TRUE(rowsWith("\"Odd one\"", R"("Odd one", "timebase": {"samplePeriod": {"value": 0.5}})")
                    .contains("Odd one|0.5 s (differs)|1024|0.5 s|On trigger|\u2013|After the duration|90 s"));
    HeadlessPage none = played(R"({"drivers": []})");
    EXPECT_TRUE(sheetOf(none, "").contains("Records nothing"));
}

TEST_F(SetupSheetTest, NoRowIsCutAtTheEndOfAPage)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    char name[] = "host_test";
    char* names[] = {name, nullptr};
    const QGuiApplication application(count, names);
    // Pages of any height, where another row each is at the end.
    for (const auto& [size, longest, dotsPerMeter, heights] :
         {std::tuple(90U, 300U, 3780, 1), {90, 300, 23622, 1}, {4, 300, 3780, 50}, {4, 9000, 3780, 5}}) {
        std::string channels;
        for (std::size_t i = 0; i < size; ++i) {
            const std::string word = "Word " + std::string((i * 37 + 150) % 300 * longest / 300, 'x');
            channels += (i ? "," : "") + (R"({"address": "0:)" + std::to_string(i) + R"(", "name": ")" + word + "\"}");
        }
        HeadlessPage page =
            played(R"({"drivers": [{"name": "A", "groups": [{"name": "G", "channels": [)" + channels + "]}]}]}");
        for (int i = 0; i < heights; ++i) {
            QImage paper(dotsPerMeter / 5, dotsPerMeter * (200 - 2 * i) / 1000, QImage::Format_RGB32);
            paper.setDotsPerMeterX(dotsPerMeter);
            paper.setDotsPerMeterY(dotsPerMeter);
            const SheetPages pages(sourceOf(page, "x"), paper, paper.size());
            EXPECT_GT(pages.count(), heights > 1 ? 0 : 3);
            const QTextDocument& document = pages.document();
            const auto bounds = [&](const QTextBlock& it) { return document.documentLayout()->blockBoundingRect(it); };
            const auto pageOf = [&](double y) {
                return std::ranges::find_if(pages.pages(), [&](const auto& it) { return y < it.shown.bottom; });
            };
            for (const SheetPages::Page& it : pages.pages())
                EXPECT_LE(it.shown.height() + it.header.height(), paper.height()) << i;
            for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
                QTextBlock first = block;
                if (const QTextTable* table = QTextCursor(block).currentTable(); table && longest < 1000)
                    first = table->cellAt(table->cellAt(block.position()).row(), 0).firstCursorPosition().block();
                for (int line = 0; line < block.layout()->lineCount(); ++line) {
                    const QRectF rect = block.layout()->lineAt(line).rect().translated(bounds(block).topLeft());
                    EXPECT_EQ(pageOf(rect.bottom() - 1), pageOf(first == block ? rect.top() : bounds(first).top()));
                }
            }
        }
    }
}

TEST_F(SetupSheetTest, ThePaperIsThatOfTheRegionAndOnlyPdfAndHtmlFilesAreSheets)
{
    for (const char* letter : {"en_US", "fr_CA"})
        EXPECT_EQ(paperOf(QLocale(letter)), QPageSize::Letter);
    for (const char* a4 : {"en_GB", "de_DE", "C"})
        EXPECT_EQ(paperOf(QLocale(a4)), QPageSize::A4);
    for (const char* file : {"a.pdf", "a.b.HTML", "/x/a.Pdf"})
        EXPECT_NO_THROW(checkSheetFile(file)) << file;
    for (const char* file : {"a.txt", "pdf", "a.pdf.gz", "a.htm", "", ".pdf"})
        EXPECT_THROW(checkSheetFile(file), InputError) << file;
}

} // namespace
} // namespace ko::test
