#include "host/scenario/DialogPlayer.h"
#include "platform/CaptionControls.h"
#include "platform/Form.h"
#include "platform/TextBox.h"

#include <gtest/gtest.h>
#include <sstream>

namespace ko {
namespace {

class DialogTest : public testing::Test {
protected:
    struct Asking : Form {
        Asking() : Form("SetDateTime") { setButtons(btnOK, btnCancel); }
        TextBox txtValue{*this, "txtValue"};
        CommandButton btnOK{*this, "btnOK"};
        CommandButton btnCancel{*this, "btnCancel"};
    };

    /// Runs the commands as the block's lines, numbered from 11, while line 3 shows the form.
    std::string show(const std::vector<std::string>& commands)
    {
        std::vector<ScriptLine> block;
        block.reserve(commands.size());
        for (const std::string& command : commands)
            block.push_back({11 + static_cast<int>(block.size()), {command}});
        if (!block.empty())
            player.queue(form.name(), block);
        log.setLine(3);
        player.showModal(form);
        log.event("shown");
        const std::string result = output.str();
        output.str("");
        return result;
    }

    bool played(const ScriptLine& line)
    {
        const std::string& command = line.words.front();
        log.event(command, {{"open", player.isOpen()}});
        if (command != "note")
            dynamic_cast<CommandButton&>(*player.form()->find(command)).userClicked();
        return command != "btnStop";
    }

    std::ostringstream output;
    EventLog log{output};
    DialogPlayer player{log, [this](const ScriptLine& line) { return played(line); }};
    Asking form;
};

TEST_F(DialogTest, AFormWithoutAnAnswerIsCancelledByItsButtonOrElseClosed)
{
    const std::string opened = R"({"line":3,"event":"dialog","form":"SetDateTime","action":"opened","left":0,"top":0}
)";
    const std::string closed =
        R"("event":"dialog","form":"SetDateTime","action":"closed","left":0,"top":0,"unanswered":true}
{"line":3,"event":"shown"}
)";
    EXPECT_EQ(show({}), opened + "{\"line\":3," + closed);
    form.btnCancel.click = [&] {
        log.event("cancelled");
        player.hide(form);
    };
    EXPECT_EQ(show({}), opened + "{\"line\":3,\"event\":\"cancelled\"}\n{\"line\":3," + closed);
    form.btnCancel.setEnabled(false);
    player.queue("SetDateTime", {{8, {"end"}}});
    EXPECT_EQ(show({"note", "end"}), opened + "{\"line\":8," + closed);
    EXPECT_EQ(show({}), opened + "{\"line\":11,\"event\":\"note\",\"open\":true}\n{\"line\":12," + closed);
    EXPECT_FALSE(player.form());
}

} // namespace
} // namespace ko
