#include "FailingCalls.h"
#include "FrameTest.h"
#include "host/docks/Reports.h"
#include "host/recording/HeldRecording.h"
#include "host/recording/UnfinishedFile.h"
#include "host/recording_view/RecordingView.h"
#include "host/setup/SetupFile.h"
#include "host/support/FileWriter.h"
#include "host/support/InputError.h"
#include "host/toolkit/FrameMemory.h"

#include <QDir>
#include <QImage>
#include <QPrinter>
#include <QProcess>
#include <QTreeWidget>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>

namespace ko::test {
namespace {

namespace fs = std::filesystem;

const char* const bench = R"({"clock": "11/21/2026 9:30:00 AM", "drivers": [{"name": "A", "timebase": {"duration": 5,
  "samplePeriod": {"value": 0.001}}, "groups": [{"name": "G", "channels": [{"address": "0:1", "name": "First"}]}]}]})";

/// How writing has ended for the user.
struct Outcome {
    bool isDone = false;
    std::string message;
};

using Act = std::function<Outcome()>;

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

/// The program `failing_host`, which is `korvell-host` with calls that fail, started on a set-up in another folder or
/// on the one that it saves.
class Program {
public:
    Program(fs::path folder, QStringList arguments) : folder_(std::move(folder)), arguments_(std::move(arguments))
    {
        std::ofstream(elsewhere("set-up.json")) << bench;
        arguments_.replaceInStrings("SETUP", toQt(elsewhere("set-up.json")));
        arguments_.replaceInStrings("FOLDER", toQt(folder_.string()));
    }
    /// Runs with the n-th call failing or, if `kills`, killing the program; negative: none.
    Outcome run(int number, bool kills = false)
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(failingCalls::numberVariable, QString::number(number));
        environment.insert(failingCalls::folderVariable, toQt(folder_.string()));
        environment.insert(failingCalls::reportVariable, toQt(elsewhere("failed")));
        environment.insert(failingCalls::killVariable, kills ? "1" : "");
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(KO_FAILING_HOST, arguments_);
        EXPECT_TRUE(process.waitForFinished(60000));
        wasKilled_ = process.exitStatus() == QProcess::CrashExit;
        const int status = wasKilled_ ? 2 : process.exitCode();
        EXPECT_TRUE(status == 0 || status == 2) << status;
        return {status == 0, process.readAllStandardError().toStdString()};
    }
    [[nodiscard]] bool wasKilled() const { return wasKilled_; }
    /// Returns the call that has failed in the last run.
    [[nodiscard]] std::string failed() const
    {
        const std::string report = elsewhere("failed");
        const std::string call = fs::exists(report) ? readFile(report) : std::string();
        fs::remove(report);
        return call;
    }

private:
    [[nodiscard]] std::string elsewhere(const char* name) const { return fromQt(elsewhere_.filePath(name)); }

    fs::path folder_;
    QStringList arguments_;
    QTemporaryDir elsewhere_;
    bool wasKilled_ = false;
};

/// A window on a set-up with an unsaved change.
class Window {
public:
    explicit Window(const fs::path& folder, const std::string& setup = "set-up.json", const char* memory = nullptr)
        : frame_("", memory ? (folder / memory).string() : std::string())
    {
        const std::string file =
            (setup.starts_with('/') ? fs::path(setup) : fs::path(fromQt(own_.filePath(toQt(setup))))).string();
        if (!fs::exists(file))
            std::ofstream(file) << bench;
        user.conflict = Conflict::Overwrite;
        frame_.files().setQuestions(std::make_unique<DecidedQuestions>(user));
        frame_.open(file);
        frame_.show();
        frame_.autosave().setDelay(0);
        change();
        // Confirms each message box.
        QObject::connect(&boxes_, &QTimer::timeout, [this] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                user.told += fromQt(box->text() + u'\n' + box->informativeText());
                box->accept();
            }
        });
        boxes_.start(0);
    }
    FrameWindow& operator*() { return frame_; }
    FrameWindow* operator->() { return &frame_; }
    void change()
    {
        Page& page = frame_.document().page();
        frame_.page().view().act(
            [&] { (page.optImmediate.value() ? page.optStartTime : page.optImmediate).userClicked(); });
    }
    /// Returns the texts of the reports.
    std::string reports()
    {
        std::string texts;
        const auto& list = *frame_.docks().reports().findChild<QTreeWidget*>();
        for (int i = 0; i < list.topLevelItemCount(); ++i)
            texts += fromQt(list.topLevelItem(i)->text(2));
        return texts;
    }

    Decided user;

private:
    QTemporaryDir own_;
    FrameWindow frame_;
    QTimer boxes_;
};

/// A kind of file, and how it is written.
struct Kind {
    const char* name;
    const char* file; ///< a path in the folder
    std::string old;  ///< its content before
    bool (*isWhole)(const std::string& file);
    /// What may be beside it afterwards.
    std::set<std::string> beside;
    /// Whether a file that was begun stays although the end could not be written.
    bool grows;
    QStringList arguments; ///< of the program; empty: the window
    /// Prepares the window for the act that writes the file.
    std::function<Act(const fs::path& folder)> begin;
};

Act savedInWindow(const fs::path& folder, bool elsewhere)
{
    const auto window = std::make_shared<Window>(folder, elsewhere ? "set-up.json" : folder / "bench.json");
    window->user.saveAs = folder / "bench.json";
    return [=] {
        elsewhere ? (*window)->files().saveAs() : (*window)->files().save();
        return Outcome{!(*window)->isWindowModified(), window->user.told};
    };
}

Act exportedSheet(const fs::path& folder, const char* name)
{
    const auto window = std::make_shared<Window>(folder);
    window->user.sheet = folder / name;
    return [=] {
        (*window)->printing().exportSheet((*window)->files().questions());
        return Outcome{window->user.told.empty(), window->user.told};
    };
}

Act printed(const fs::path& folder, void (FramePrinting::*print)(QPrinter&))
{
    const auto window = std::make_shared<Window>(folder);
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
    const auto window = std::make_shared<Window>(folder);
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
    const auto window = std::make_shared<Window>(folder);
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

const std::string oldSetup = std::string(bench) + "\n";

const Kind kinds[]{
    {"save",
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
    {"Save",
     "bench.json",
     oldSetup,
     isSetup,
     {},
     false,
     {},
     [](const fs::path& folder) { return savedInWindow(folder, false); }},
    {"SaveAs",
     "bench.json",
     oldSetup,
     isSetup,
     {},
     false,
     {},
     [](const fs::path& folder) { return savedInWindow(folder, true); }},
    {"ExportHtml",
     "x.html",
     "old",
     isHtml,
     {},
     false,
     {},
     [](const fs::path& folder) { return exportedSheet(folder, "x.html"); }},
    {"ExportPdf",
     "x.pdf",
     "old",
     isPdf,
     {},
     false,
     {},
     [](const fs::path& folder) { return exportedSheet(folder, "x.pdf"); }},
    {"PrintSheet",
     "x.pdf",
     "old",
     isPdf,
     {},
     false,
     {},
     [](const fs::path& folder) { return printed(folder, &FramePrinting::printSheetOn); }},
    {"PrintPage",
     "x.pdf",
     "old",
     isPdf,
     {},
     false,
     {},
     [](const fs::path& folder) { return printed(folder, &FramePrinting::printPageOn); }},
    {"Capture", "x.scenario", "old", isScenario, {"x.scenario.setup.json"}, true, {}, captured},
    {"Record", "x.h5", "old", isRecording, {"x.h5~"}, true, {}, recorded},
    {"Memory", "sub/window.json", R"({"recentFiles": ["/old"]})", isMemory, {"sub"}, false, {}, remembered}};

void PrintTo(const Kind& kind, std::ostream* out)
{
    *out << kind.name;
}

class FilesTest : public testing::TestWithParam<Kind> {
protected:
    std::optional<QTemporaryDir> temporary_;

    fs::path folder() { return fs::path(fromQt(temporary_->path())); }
    std::string file() { return (folder() / GetParam().file).string(); }
    void makeFolder()
    {
        temporary_.emplace();
        fs::create_directories(fs::path(file()).parent_path());
        std::ofstream(file()) << GetParam().old;
    }
    bool isOld() { return holdsOld(file()); }
    static bool holdsOld(const std::string& file) { return fs::exists(file) && readFile(file) == GetParam().old; }
    void expectNothingElse()
    {
        for (const auto& entry : fs::recursive_directory_iterator(folder()))
            EXPECT_TRUE(entry.path() == file() || GetParam().beside.contains(entry.path().lexically_relative(folder())))
                << entry.path();
    }
    /// Whether an earlier recording is where it was, or under its other name.
    bool isOldKept() { return isOld() || holdsOld(file() + "~"); }
    void expectKept(const Outcome& outcome, const std::string& call)
    {
        const bool isNew = !isOld();
        EXPECT_TRUE(!isNew || GetParam().isWhole(file()));
        EXPECT_TRUE(!outcome.isDone || isNew);
        EXPECT_TRUE(outcome.isDone || !isNew || GetParam().grows || call == "synchronize the folder");
        EXPECT_TRUE(outcome.isDone || outcome.message.find(fs::path(file()).filename()) != std::string::npos);
        EXPECT_TRUE(!GetParam().beside.contains("x.h5~") || isOldKept());
        expectNothingElse();
    }
};

TEST_P(FilesTest, WhicheverCallFailsTheOldOrTheNewFileIsThereWholeAndTheUserKnows)
{
    std::multiset<std::string> reported;
    for (int number = 0;; ++number) {
        makeFolder();
        Outcome outcome;
        std::string call;
        if (GetParam().begin) {
            const Act act = GetParam().begin(folder());
            failingCalls::plan(number, folder().string());
            outcome = act();
            call = failingCalls::end();
        } else {
            Program program(folder(), GetParam().arguments);
            outcome = program.run(number);
            call = program.failed();
        }
        SCOPED_TRACE(std::to_string(number) + ": " + call + "; " + outcome.message);
        expectKept(outcome, call);
        EXPECT_TRUE(outcome.isDone || !call.empty());
        if (!outcome.isDone)
            reported.insert(call);
        if (call.empty() || HasFailure()) {
            std::cout << GetParam().name << ": " << number << " calls, " << reported.size() << " failures\n";
            break;
        }
    }
    for (const char* const made : {"open", "write", "synchronize", "rename", "synchronize the folder"})
        EXPECT_TRUE(reported.contains(made)) << made;
}

class KilledProgramTest : public FilesTest {};

TEST_P(KilledProgramTest, WhereverItIsKilledTheOldOrTheNewFileIsThereWholeAndTheNextRunCleansUp)
{
    bool wasKilled = true;
    for (int number = 0; wasKilled && !HasFailure(); ++number) {
        SCOPED_TRACE(number);
        makeFolder();
        Program program(folder(), GetParam().arguments);
        program.run(number, true);
        wasKilled = program.wasKilled();
        EXPECT_TRUE(isOldKept() || (GetParam().isWhole(file())));
        const Outcome again = program.run(-1);
        EXPECT_TRUE(again.isDone) << again.message;
        EXPECT_TRUE(GetParam().isWhole(file()));
        for (const auto& entry : fs::directory_iterator(folder()))
            EXPECT_FALSE(entry.path().filename().string().starts_with(".korvell-")) << entry.path();
    }
}

TEST(AutosaveFilesTest, WhicheverCallFailsTheCopyIsWrittenAtLastForTheUserAloneAndGoesWithTheWindow)
{
    int reported = 0;
    std::string call = "first";
    for (int number = 0; !call.empty(); ++number) {
        const QTemporaryDir temporary;
        const fs::path folder = fs::path(fromQt(temporary.path())) / "memory";
        Window window(folder, "set-up.json", "window.json");
        fs::remove_all(folder);
        failingCalls::plan(number, folder.string());
        const auto copies = [&] { return QDir(toQt(folder.string())).entryList({"*.unsaved"}); };
        EXPECT_TRUE(QTest::qWaitFor([&] { return !copies().empty(); }));
        call = failingCalls::end();
        SCOPED_TRACE(std::to_string(number) + ": " + call + "; " + window.reports());
        const std::string copy = folder / fromQt(copies().value(0));
        EXPECT_EQ(parseCopy(readFile(copy), copy), window->session().unsaved());
        EXPECT_EQ(fs::status(copy).permissions(), fs::perms::owner_read | fs::perms::owner_write);
        reported += window.reports().empty() ? 0 : 1;
        window.user.unsaved = Unsaved::Discard;
        window->close();
        for (const auto& entry : fs::directory_iterator(folder))
            EXPECT_EQ(entry.path().filename(), "window.json");
    }
    EXPECT_GT(reported, 5);
    std::cout << "Autosave: " << reported << " failures\n";
}

TEST(SavedAgainTest, AfterAnyFailureTheNextSaveSucceedsWithoutAQuestion)
{
    std::string call = "first";
    for (int number = 0; !call.empty(); ++number) {
        const QTemporaryDir folder;
        Window window(fromQt(folder.path()), fromQt(folder.filePath("bench.json")));
        failingCalls::plan(number, fromQt(folder.path()));
        window->files().save();
        call = failingCalls::end();
        SCOPED_TRACE(call);
        window.user.conflict = Conflict::Cancel;
        window->files().save();
        EXPECT_FALSE(window->isWindowModified());
    }
}

TEST(FileWriterTest, AFailedWriteLeavesTheLinesBeforeAndOnlyFilesOfKilledProgramsAreRemoved)
{
    const QTemporaryDir temporary;
    const fs::path folder = fromQt(temporary.path());
    const std::string file = folder / "x";
    FileWriter log(file);
    log.write("0123456789", 0);
    log.commit();
    failingCalls::plan(0, folder.string());
    EXPECT_THROW(log.write(std::string(9000, 'x'), 5), InputError);
    EXPECT_EQ(failingCalls::end(), "write");
    EXPECT_TRUE(readFile(file) == "0123456789");
    const fs::path abandoned = folder / ".korvell-1-0.new", others = folder / ".korvell-notes";
    for (const fs::path& left : {abandoned, others})
        std::ofstream(left) << "left";
    FileWriter first(folder / "a");
    FileWriter second(folder / "b");
    EXPECT_FALSE(fs::exists(abandoned));
    EXPECT_TRUE(fs::exists(others));
    first.commit();
    second.commit();
    EXPECT_TRUE(fs::exists(folder / "a") && fs::exists(folder / "b"));
}

std::string nameOf(const testing::TestParamInfo<Kind>& of)
{
    return of.param.name;
}

std::vector<Kind> writtenByProgram()
{
    std::vector<Kind> chosen;
    std::copy_if(std::begin(kinds), std::end(kinds), std::back_inserter(chosen),
                 [](const Kind& kind) { return !kind.begin; });
    return chosen;
}

INSTANTIATE_TEST_SUITE_P(Kinds, FilesTest, testing::ValuesIn(kinds), nameOf);
INSTANTIATE_TEST_SUITE_P(Kinds, KilledProgramTest, testing::ValuesIn(writtenByProgram()), nameOf);

} // namespace
} // namespace ko::test
