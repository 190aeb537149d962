#include "host/ScenarioWriter.h"

#include "host/ScriptReader.h"

#include <ostream>

namespace ko {

void ScenarioWriter::comment(const std::string& text)
{
    append("# " + text + "\n");
}

void ScenarioWriter::line(const Words& words)
{
    const std::string text = joinWords(words) + "\n";
    if (open_.empty())
        return append(text);
    blocks_[open_.back()].lines += "    " + text;
    write();
}

void ScenarioWriter::dialogOpened(const std::string& form)
{
    open_.push_back(blocks_.size());
    blocks_.push_back({form, {}});
    write();
}

void ScenarioWriter::dialogClosed()
{
    open_.pop_back();
}

std::string ScenarioWriter::dialog() const
{
    return open_.empty() ? std::string() : blocks_[open_.back()].form;
}

bool ScenarioWriter::good() const
{
    return output_.good();
}

/// What was written last cannot open a dialog any more.
void ScenarioWriter::append(const std::string& text)
{
    start_ = output_.tellp();
    blocks_.clear();
    opener_ = text;
    write();
}

/// Never shorter than what stood there before.
void ScenarioWriter::write()
{
    output_.seekp(start_);
    for (const Block& block : blocks_)
        output_ << joinWords({"dialog", block.form}) << '\n' << block.lines << "end\n";
    output_ << opener_ << std::flush;
}

} // namespace ko
