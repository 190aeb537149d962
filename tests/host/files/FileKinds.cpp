#include "FileKinds.h"

#include "ChangedWindow.h"
#include "host/recording/HeldRecording.h"
#include "host/recording/UnfinishedFile.h"
#include "host/recording_view/RecordingView.h"
#include "host/support/InputError.h"
#include "host/toolkit/FrameMemory.h"

#include <QImage>
#include <QPrinter>

namespace ko::test {
namespace {

namespace fs = std::filesystem;

bool isSetup(const std::string& file)
{
    return !loadSetup(file).instruments.empty();
}

bool isScenario(const std::string& file)
{
    const std::string text = readFile(file);
    return text.starts_with("# ") && text.ends_with('\n');
}

bool isHtml(const std::string& file)
{
    return readFile(file).ends_with("</html>\n");
}

/// A part that is missing in the middle would move the table at the end.
bool isPdf(const std::string& file)
{
    const std::string text = readFile(file);
    const auto at = text.rfind("startxref\n");
    return at != std::string::npos && text.compare(std::stoul(text.substr(at + 10)), 4, "xref") == 0;
}

bool isPicture(const std::string& file)
{
    return !QImage(toQt(file)).isNull();
}

bool isRecording(const std::string& file)
{
    clearUnfinished(file);
    return heldIn(file).instruments.size() == 1;
}

template <bool elsewhere> Act savedInWindow(const fs::path& folder)
{
    const auto window = std::make_shared<ChangedWindow>(folder, elsewhere ? "set-up.json" : folder / "bench.json");
    window->user.saveAs = folder / "bench.json";
    return [=] {
        elsewhere ? (*window)->files().saveAs() : (*window)->files().save();
        return Outcome{!(*window)->isWindowModified(), window->user.told};
    };
}

template <bool asPdf> Act exportedSheet(const fs::path& folder)
{
    const auto window = std::make_shared<ChangedWindow>(folder);
    window->user.sheet = folder / (asPdf ? "x.pdf" : "x.html");
    return [=] {
        (*window)->printing().exportSheet((*window)->files().questions());
        return Outcome{window->user.told.empty(), window->user.told};
    };
}

template <void (FramePrinting::*print)(QPrinter&)> Act printed(const fs::path& folder)
{
    const auto window = std::make_shared<ChangedWindow>(folder);
    return [=] {
        qputenv("TMPDIR", folder.string().c_str());
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(toQt(folder / "x.pdf"));
        ((*window)->printing().*print)(printer);
        qunsetenv("TMPDIR");
        const std::string told = window->user.told + window->reports();
        return Outcome{told.empty(), told};
    };
}

Act captured(const fs::path& folder)
{
    const auto window = std::make_shared<ChangedWindow>(folder);
    return [=] {
        try {
            (*window)->capture().startFromHere(folder / "x.scenario");
            window->change();
            window->change();
            QCoreApplication::processEvents();
        } catch (const InputError& error) {
            window->user.told += error.what();
        }
        (*window)->capture().stop();
        return Outcome{window->user.told.empty(), window->user.told};
    };
}

Act recorded(const fs::path& folder)
{
    const auto window = std::make_shared<ChangedWindow>(folder);
    window->user.record = folder / "x.h5";
    window->user.pastStart = PastStart::Now;
    return [=] {
        FrameRecording& recording = (*window)->recording();
        recording.record();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !recording.isActive(); }));
        std::string texts = window->user.told;
        for (const QLabel* const label : recording.view().findChildren<QLabel*>())
            texts += fromQt(label->text()) + "\n";
        return Outcome{fromQt(recording.view().stateText()) == "The recording is complete.", texts};
    };
}

Act remembered(const fs::path& folder)
{
    const auto memory = std::make_shared<FrameMemory>((folder / "sub" / "window.json").string());
    return [=] {
        testing::internal::CaptureStderr();
        memory->change([](FrameMemory::Content& content) { content.recentFiles << "/new"; });
        const std::string told = testing::internal::GetCapturedStderr();
        return Outcome{told.empty(), told};
    };
}

bool isMemory(const std::string& file)
{
    return FrameMemory(file).content().recentFiles == QStringList{"/old", "/new"};
}

const std::string oldSetup = std::string(fileBench) + "\n";

} // namespace

std::vector<Kind> fileKinds()
{
    return {{"save",
             "bench.json",
             oldSetup,
             isSetup,
             {},
             false,
             {"FOLDER/bench.json", "--set", "duration=7", "--save", "FOLDER/bench.json"},
             {}},
            {"saveElsewhere", "x.json", oldSetup, isSetup, {}, false, {"SETUP", "--save", "FOLDER/x.json"}, {}},
            {"saveNew", "x.json", oldSetup, isSetup, {}, false, {"--new", "vibration", "--save", "FOLDER/x.json"}, {}},
            {"sheetHtml", "x.html", "old", isHtml, {}, false, {"SETUP", "--sheet", "FOLDER/x.html"}, {}},
            {"sheetPdf", "x.pdf", "old", isPdf, {}, false, {"SETUP", "--sheet", "FOLDER/x.pdf"}, {}},
            {"picture", "x.png", "old", isPicture, {}, false, {"SETUP", "--picture", "FOLDER/x.png"}, {}},
            {"record", "x.h5", "old", isRecording, {"x.h5~"}, true, {"SETUP", "--record", "FOLDER/x.h5"}, {}},
            {"Save", "bench.json", oldSetup, isSetup, {}, false, {}, savedInWindow<false>},
            {"SaveAs", "bench.json", oldSetup, isSetup, {}, false, {}, savedInWindow<true>},
            {"ExportHtml", "x.html", "old", isHtml, {}, false, {}, exportedSheet<false>},
            {"ExportPdf", "x.pdf", "old", isPdf, {}, false, {}, exportedSheet<true>},
            {"PrintSheet", "x.pdf", "old", isPdf, {}, false, {}, printed<&FramePrinting::printSheetOn>},
            {"PrintPage", "x.pdf", "old", isPdf, {}, false, {}, printed<&FramePrinting::printPageOn>},
            {"Capture", "x.scenario", "old", isScenario, {"x.scenario.setup.json"}, true, {}, captured},
            {"Record", "x.h5", "old", isRecording, {"x.h5~"}, true, {}, recorded},
            {"Memory", "sub/window.json", R"({"recentFiles": ["/old"]})", isMemory, {"sub"}, false, {}, remembered}};
}

} // namespace ko::test
