#pragma once

#include "host/properties/ParameterTable.h"
#include "host/properties/PropertyTabs.h"

#include <QWidget>

class QBoxLayout;
class QListWidget;

namespace ko {

/// The tab with the channels of an instrument: their signals and trigger parameters.
class ChannelsTab : public QWidget {
public:
    /// `groups` are the instrument's; its channels stay as many as they are.
    ChannelsTab(const PropertyContext& context, const std::vector<GroupSettings>& groups, QWidget* parent);

    /// Brings the tab forward with the channel of this path.
    void showChannel(const std::string& path);
    /// Takes what is in the boxes and the cells.
    void take();
    /// Shows the channel of a refused member and moves the focus to the member. Returns its name; an empty text for a
    /// member that is of no channel.
    QString focusOn(const PropertyRefusal& refusal);

private:
    void fillList(const std::vector<GroupSettings>& groups);
    void addFields(const PropertyContext& context, QBoxLayout& column);
    void addTable(const PropertyContext& context, QBoxLayout& column);
    void showCurrent();

    PropertyFields fields_; ///< of the selected channel
    QListWidget* list_;
    QWidget* content_;
    ParameterTable* table_;
};

} // namespace ko
