#include "host/setup/UnsavedSetup.h"

#include "host/setup/SetupWriter.h"
#include "host/support/InputError.h"

#include <array>
#include <sstream>

namespace ko {

namespace {

constexpr const char* mark = "korvell-unsaved-1";

/// Returns the next `size` bytes and consumes them with the line break that follows.
std::string take(std::istringstream& text, std::size_t size)
{
    std::string part(size, '\0');
    text.read(part.data(), static_cast<std::streamsize>(size));
    if (text.get() != '\n')
        text.setstate(std::ios::failbit);
    return part;
}

} // namespace

/// The first line has the sizes of the parts, because the name of a file may be any bytes.
std::string copyText(const UnsavedSetup& unsaved)
{
    const std::array parts{unsaved.file, unsaved.templateName, unsaved.saved, setupText(unsaved.setup)};
    std::string text = mark;
    for (const std::string& part : parts)
        text += ' ' + std::to_string(part.size());
    for (const std::string& part : parts)
        text += '\n' + part;
    return text + '\n';
}

UnsavedSetup parseCopy(const std::string& text, const std::string& file)
{
    std::istringstream input(text);
    std::string found;
    std::array<std::size_t, 4> sizes{};
    input >> found;
    for (std::size_t& size : sizes)
        if (!(input >> size) || size > text.size())
            input.setstate(std::ios::failbit);
    if (!input || found != mark || input.get() != '\n')
        throw InputError(file + ": is no copy of a set-up");
    UnsavedSetup unsaved;
    unsaved.file = take(input, sizes[0]);
    unsaved.templateName = take(input, sizes[1]);
    unsaved.saved = take(input, sizes[2]);
    const std::string setup = take(input, sizes[3]);
    if (!input || input.peek() != std::istringstream::traits_type::eof())
        throw InputError(file + ": is damaged");
    unsaved.setup = parseSetup(setup, file);
    return unsaved;
}

bool isSaved(const UnsavedSetup& unsaved)
{
    try {
        return loadSetup(unsaved.file) == unsaved.setup;
    } catch (const InputError&) {
        return false;
    }
}

} // namespace ko
