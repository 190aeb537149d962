#pragma once

#include "interfaces/ClientSite.h"

#include <memory>

namespace ko {

/// Client site and read-only mode. All calls are made on the user-interface thread; none throws.
class IKopMode {
public:
    /// Switches read-only mode on or off; a shown page is updated at once.
    virtual void setReadOnly(bool flag) = 0;

    /// Sets the document's client site. The document queries and keeps its two views; a view that the site does not
    /// offer is reported as a failure, and the previous view is kept. An empty pointer clears both views.
    virtual void setClientSite(const std::shared_ptr<ClientSite>& site) = 0;

protected:
    ~IKopMode() = default;
};

} // namespace ko
