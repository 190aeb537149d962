#pragma once

#include "interfaces/ClientSite.h"

#include <memory>

namespace ko {

/// Client site and read-only mode. All calls on the user-interface thread; none ever throws.
class IKopMode {
public:
    /// Puts the page into read-only mode or back; a shown page follows at once.
    virtual void setReadOnly(bool flag) = 0;

    /// Gives the document its client site. The document keeps the two views it asks the site for; a view that the
    /// site does not offer is reported as a failure, and the view known before stays. No site at all (an empty
    /// pointer) takes both views away.
    virtual void setClientSite(const std::shared_ptr<ClientSite>& site) = 0;

protected:
    ~IKopMode() = default;
};

} // namespace ko
