#include "host/main/Language.h"

#include "host/setup/SetupFile.h"
#include "host/support/DataFolders.h"
#include "host/support/InputError.h"

#include <cstdlib>
#include <set>
#include <string_view>

namespace ko {

namespace {

constexpr std::string_view english = "en";

/// Returns "de_AT" for "de_AT.UTF-8@euro"; empty for "C" and "POSIX".
std::string codeOf(std::string_view locale)
{
    const std::string_view code = locale.substr(0, locale.find_first_of(".@"));
    return code == "C" || code == "POSIX" ? std::string() : std::string(code);
}

std::string systemLanguage()
{
    for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const char* const locale = std::getenv(variable); locale && *locale)
            return codeOf(locale);
    return {};
}

std::optional<std::filesystem::path> stringFile(const std::string& code)
{
    const auto file = findDataFile("strings/" + code + ".txt");
    const std::size_t territory = code.find('_');
    return file || territory == std::string::npos ? file
                                                  : findDataFile("strings/" + code.substr(0, territory) + ".txt");
}

/// Lists the languages with a string file, English first.
std::string languages()
{
    std::set<std::string> others;
    if (const auto file = findDataFile("strings/en.txt"))
        for (const auto& entry : std::filesystem::directory_iterator(file->parent_path()))
            others.insert(entry.path().stem().string());
    others.erase(std::string(english));
    std::string list(english);
    for (const std::string& language : others)
        list += ", " + language;
    return list;
}

} // namespace

std::string languageContent(const std::string& language)
{
    if (language.empty() || language == english)
        return {};
    std::error_code unknown;
    if (std::filesystem::is_regular_file(language, unknown))
        return readFile(language);
    if (const auto file = stringFile(language))
        return readFile(file->string());
    throw InputError(language + ": unknown language; use " + languages() + " or a string file");
}

std::string systemLanguageContent()
{
    const auto file = stringFile(systemLanguage());
    return file ? readFile(file->string()) : std::string();
}

} // namespace ko
