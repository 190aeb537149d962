#include "host/sheet/SheetFile.h"

#include "host/sheet/SheetPages.h"
#include "host/support/FileWriter.h"
#include "host/support/InputError.h"

#include <QGuiApplication>
#include <algorithm>
#include <cctype>
#include <filesystem>
#include <memory>

namespace ko {

namespace {

/// Returns the file's extension in lower case.
std::string endingOf(const std::string& file)
{
    std::string ending = std::filesystem::path(file).extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return ending;
}

QPageSize::PageSizeId paperNamed(const std::string& name)
{
    if (name.empty())
        return paperOf(QLocale::system());
    return name == "Letter" ? QPageSize::Letter : QPageSize::A4;
}

/// Laying out text requires a QGuiApplication; this one needs no display.
class Fonts {
public:
    Fonts()
    {
        if (QCoreApplication::instance())
            return;
        qputenv("QT_QPA_PLATFORM", "offscreen");
        own_ = std::make_unique<QGuiApplication>(count_, names_);
    }

private:
    int count_ = 1;
    char name_[13] = "korvell-host";
    char* names_[2] = {name_, nullptr};
    std::unique_ptr<QGuiApplication> own_;
};

} // namespace

void checkSheetFile(const std::string& file)
{
    if (const std::string ending = endingOf(file); ending != ".pdf" && ending != ".html")
        throw InputError(file + ": a set-up sheet is a .pdf or a .html file");
}

void saveSheet(const std::string& file, const SheetSource& source, const std::string& paper)
{
    checkSheetFile(file);
    if (endingOf(file) == ".html") {
        writeWhole(file, fromQt(setupSheet(source)));
        return;
    }
    const Fonts fonts;
    writeWhole(file, sheetPdf(source, paperNamed(paper)).toStdString());
}

} // namespace ko
