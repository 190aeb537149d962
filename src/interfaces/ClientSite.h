#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace ko {

/// Topics of the host's help.
namespace helpTopic {
inline constexpr std::int32_t readOnlyPage = 507;
inline constexpr std::int32_t selectChannel = 1004;
inline constexpr std::int32_t setDateTime = 1005;
inline constexpr std::int32_t advancedTrig = 1006;
inline constexpr std::int32_t page = 1007;
} // namespace helpTopic

/// The host's help.
class HelpSite {
public:
    virtual ~HelpSite() = default;

    /// Opens the help at a numbered topic.
    virtual void ShowHelpTopic(std::int32_t topic) = 0;
};

/// The host's status line.
class StatusSite {
public:
    virtual ~StatusSite() = default;

    /// The caption that the document passes back with every hint.
    virtual std::string Caption() = 0;

    /// Shows a hint; an empty hint clears the line.
    virtual void ShowHint(const std::string& hint, const std::string& caption) = 0;
};

/// The site in the host's frame that contains the document. Each query returns an empty pointer when the host does not
/// offer that view; the document shares ownership of the returned object.
class ClientSite {
public:
    virtual ~ClientSite() = default;

    virtual std::shared_ptr<StatusSite> queryStatusSite() = 0;
    virtual std::shared_ptr<HelpSite> queryHelpSite() = 0;
};

/// Notified when a property of the document changes, so that the host can mark the set-up as changed.
class PropertyNotifySink {
public:
    virtual ~PropertyNotifySink() = default;

    virtual void OnChanged() = 0;
};

} // namespace ko
