#include "document/TimebaseEditor.h"

namespace ko {

namespace {

/// The text that the edit commands change. Failure 91 when no control has the focus, 13 when it edits no text.
TextEditing& focusedText(const Page& page)
{
    TextEditing* text = required(page.activeControl()).textEditing();
    if (!text)
        fail(failure::typeMismatch);
    return *text;
}

void copySelection(const Page& page, Clipboard& clipboard)
{
    clipboard.clear();
    clipboard.setText(focusedText(page).selText());
}

void cutSelection(const Page& page, Clipboard& clipboard)
{
    copySelection(page, clipboard);
    focusedText(page).setSelText("");
}

void deleteSelection(const Page& page)
{
    focusedText(page).setSelText("");
}

void pasteClipboard(const Page& page, Clipboard& clipboard)
{
    focusedText(page).setSelText(clipboard.text());
}

bool hasSelection(const Page& page)
{
    return (page.editFlags & editFlag::copy) != 0 && focusedText(page).selLength() > 0;
}

bool canPaste(const Page& page, Clipboard& clipboard)
{
    std::string text;
    try {
        text = clipboard.text();
    } catch (...) {
        return false;
    }
    return !text.empty() && (page.editFlags & editFlag::paste) != 0;
}

} // namespace

void TimebaseEditor::OnCommand(std::int32_t commandId)
{
    const Steps step(support_.errors, "IKopMenu_OnCommand", Steps::Begin::Anew);
    Clipboard& clipboard = support_.platform.clipboard;
    switch (commandId) {
    case command::copy: step([&] { copySelection(page_, clipboard); }); break;
    case command::cut: step([&] { cutSelection(page_, clipboard); }); break;
    case command::erase: step([&] { deleteSelection(page_); }); break;
    case command::paste: step([&] { pasteClipboard(page_, clipboard); }); break;
    case command::help:
        if (const auto site = page_.helpSite)
            step([&] { site->ShowHelpTopic(page_.readOnly ? helpTopic::readOnlyPage : helpTopic::page); });
        break;
    case command::acceptEntry: {
        bool allowed = false;
        if (page_.editFlags > 0)
            OKToLeave(allowed);
        if (allowed)
            step([&] { validateActiveControl(true); });
        break;
    }
    default: break;
    }
}

void TimebaseEditor::OnUpdateCommandUI(std::int32_t commandId, std::int32_t& enable)
{
    const Steps step(support_.errors, "IKopMenu_OnUpdateCommandUI", Steps::Begin::Anew);
    const auto enabled = [&] {
        switch (commandId) {
        case command::copy:
        case command::cut:
        case command::erase: return hasSelection(page_);
        case command::paste: return canPaste(page_, support_.platform.clipboard);
        case command::help: return true;
        default: return false;
        }
    };
    enable = step.value(enabled) ? 1 : 0;
}

} // namespace ko
