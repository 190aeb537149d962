#pragma once

#include "interfaces/ClientSite.h"

#include <functional>
#include <memory>

namespace ko {

/// The frame window's place for a document: its status line and its help.
class FrameSite : public ClientSite,
                  public StatusSite,
                  public HelpSite,
                  public std::enable_shared_from_this<FrameSite> {
public:
    std::function<std::string()> caption;
    std::function<void(const std::string& hint, const std::string& hintCaption)> showHint;
    std::function<void(std::int32_t topic)> showHelp;

    std::shared_ptr<StatusSite> queryStatusSite() override { return shared_from_this(); }
    std::shared_ptr<HelpSite> queryHelpSite() override { return shared_from_this(); }

    std::string Caption() override { return caption ? caption() : std::string(); }
    void ShowHint(const std::string& hint, const std::string& hintCaption) override;
    void ShowHelpTopic(std::int32_t topic) override;

    /// The window is going: whoever still holds the site talks to nobody.
    void close();
};

} // namespace ko
