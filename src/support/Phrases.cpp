#include "support/Phrases.h"

#include "platform/NumberText.h"
#include "support/TextNumbers.h"

#include <string>

namespace ko {

namespace {

bool isSingular(const std::string& rule, std::int64_t count)
{
    return (' ' + rule + ' ').find(' ' + std::to_string(count) + ' ') != std::string::npos;
}

} // namespace

std::string filled(std::string_view pattern, std::initializer_list<std::string_view> arguments)
{
    std::string text;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const std::size_t number = pattern[at] == '%' && at + 1 < pattern.size()
                                       ? static_cast<std::size_t>(static_cast<unsigned char>(pattern[at + 1])) - '0'
                                       : 0;
        if (number >= 1 && number <= arguments.size()) {
            text += arguments.begin()[number - 1];
            ++at;
        } else {
            text += pattern[at];
        }
    }
    return text;
}

std::string withOneFullStop(std::string sentence)
{
    while (sentence.ends_with(".."))
        sentence.pop_back();
    return sentence;
}

std::string counted(const Support& support, std::int64_t count, int singular)
{
    const int form = isSingular(support.text(textNumber::plan::singularCounts), count) ? singular : singular + 1;
    return filled(support.text(form), {countText(count, support.locale())});
}

} // namespace ko
