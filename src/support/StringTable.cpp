#include "support/StringTable.h"

#include "platform/Failure.h"

#include <charconv>

namespace ko {

namespace {

[[noreturn]] void refuse(int line, const char* what)
{
    throw Failure(failure::invalidCall, "string file, line " + std::to_string(line) + ": " + what);
}

std::pair<int, std::string> parseEntry(std::string_view entry, int line)
{
    int number = 0;
    const auto [end, error] = std::from_chars(entry.data(), entry.data() + entry.size(), number);
    if (error != std::errc() || number <= 0)
        refuse(line, "an entry begins with its number");
    const std::size_t open = entry.find('"');
    const std::size_t close = entry.rfind('"');
    const auto numberLength = static_cast<std::size_t>(end - entry.data());
    if (open != numberLength + 1 || entry[numberLength] != ' ' || close == open || close + 1 != entry.size())
        refuse(line, "after the number come one blank and the text in double quotes");
    return {number, std::string(entry.substr(open + 1, close - open - 1))};
}

} // namespace

StringTable::StringTable(std::string_view language)
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (language.starts_with(byteOrderMark))
        language.remove_prefix(byteOrderMark.size());
    load(englishStrings());
    load(language);
}

void StringTable::load(std::string_view content)
{
    for (int line = 1; !content.empty(); ++line) {
        const std::size_t end = content.find('\n');
        std::string_view entry = content.substr(0, end);
        content.remove_prefix(end == std::string_view::npos ? content.size() : end + 1);
        if (entry.ends_with('\r'))
            entry.remove_suffix(1);
        if (entry.empty() || entry.front() == '#')
            continue;
        auto [number, text] = parseEntry(entry, line);
        texts_.insert_or_assign(number, std::move(text));
    }
}

const std::string& StringTable::text(int number) const
{
    const auto found = texts_.find(number);
    if (found == texts_.end())
        fail(failure::resourceNotFound);
    return found->second;
}

} // namespace ko
