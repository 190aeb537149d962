#include "host/scenario/ScriptReader.h"

#include <istream>

namespace ko {

namespace {

constexpr std::string_view blanks = " \t\r";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// Takes words from the front of a line.
class WordCutter {
public:
    WordCutter(std::string_view line, int number) : rest_(line), number_(number) {}

    std::optional<std::string> next()
    {
        const std::size_t start = rest_.find_first_not_of(blanks);
        if (start == std::string_view::npos)
            return std::nullopt;
        rest_.remove_prefix(start);
        return rest_.front() == '"' ? quotedWord() : plain();
    }

private:
    std::string plain()
    {
        const std::string word(rest_.substr(0, rest_.find_first_of(blanks)));
        rest_.remove_prefix(word.size());
        return word;
    }

    std::string quotedWord()
    {
        std::string word;
        for (std::size_t at = 1; at < rest_.size(); ++at) {
            if (rest_[at] == '"') {
                close(at + 1);
                return word;
            }
            word += rest_[at] == '\\' ? escaped(++at) : rest_[at];
        }
        throw ScriptFault(number_, "a quoted word does not end");
    }

    char escaped(std::size_t at) const
    {
        switch (at < rest_.size() ? rest_[at] : '\0') {
        case '"': return '"';
        case '\\': return '\\';
        case 'n': return '\n';
        default: throw ScriptFault(number_, R"(after \ only ", \ and n may stand in a quoted word)");
        }
    }

    void close(std::size_t end)
    {
        rest_.remove_prefix(end);
        if (!rest_.empty() && blanks.find(rest_.front()) == std::string_view::npos)
            throw ScriptFault(number_, "a blank is missing behind a quoted word");
    }

    std::string_view rest_;
    int number_;
};

std::string quotedWord(std::string_view word)
{
    std::string result = "\"";
    for (const char letter : word) {
        if (letter == '"' || letter == '\\')
            result += '\\';
        letter == '\n' ? result += "\\n" : result += letter;
    }
    return result + '"';
}

} // namespace

std::vector<std::string> splitWords(const std::string& line, int number)
{
    std::vector<std::string> words;
    WordCutter cutter(line, number);
    while (auto word = cutter.next())
        words.push_back(std::move(*word));
    return words;
}

std::string joinWords(const std::vector<std::string>& words)
{
    std::string line;
    for (const std::string& word : words) {
        const bool plain = !word.empty() && word.front() != '"' && word.find_first_of(" \t\r\n") == std::string::npos;
        line += (line.empty() ? "" : " ") + (plain ? word : quotedWord(word));
    }
    return line;
}

std::optional<ScriptLine> ScriptReader::next()
{
    std::string line;
    while (std::getline(input_, line)) {
        if (++number_ == 1 && line.compare(0, byteOrderMark.size(), byteOrderMark) == 0)
            line.erase(0, byteOrderMark.size());
        const std::size_t start = line.find_first_not_of(blanks);
        if (start != std::string::npos && line[start] != '#')
            return ScriptLine{number_, splitWords(line, number_)};
    }
    return std::nullopt;
}

std::vector<ScriptLine> ScriptReader::block(int opener)
{
    std::vector<ScriptLine> lines;
    while (auto line = next()) {
        lines.push_back(std::move(*line));
        if (lines.back().words.front() == "end")
            return lines;
    }
    throw ScriptFault(opener, "the dialog block has no end");
}

} // namespace ko
