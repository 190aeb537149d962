#include "host/scenario/ScenarioWriter.h"

#include "host/scenario/ScriptReader.h"

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
    // A dialog that was open before the first line has no block.
    if (!open_.empty())
        open_.pop_back();
}

std::string ScenarioWriter::dialog() const
{
    return open_.empty() ? std::string() : blocks_[open_.back()].form;
}

/// Dialogs opened from now on belong to this text, so everything before it is final.
void ScenarioWriter::append(const std::string& text)
{
    start_ = end_;
    blocks_.clear();
    opener_ = text;
    write();
}

void ScenarioWriter::write()
{
    std::string text;
    for (const Block& block : blocks_)
        text += joinWords({"dialog", block.form}) + "\n" + block.lines + "end\n";
    text += opener_;
    output_(text, start_);
    end_ = start_ + text.size();
}

} // namespace ko
