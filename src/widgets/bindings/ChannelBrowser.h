#pragma once

#include "platform/ChannelSelector.h"
#include "widgets/bindings/Binding.h"

#include <QLineEdit>
#include <QTreeWidget>

namespace ko {

/// A tree of channels below a line edit that filters it. The Tab key moves between the two.
class ChannelBrowser : public QWidget {
public:
    explicit ChannelBrowser(QWidget* parent);

    QLineEdit* filter;
    QTreeWidget* tree;

protected:
    bool focusNextPrevChild(bool next) override;
};

/// The channel selector in a browser. The filter shows only lines that contain its text, and the lines above and below
/// them in the tree; a double click activates a channel.
class ChannelSelectorBinding : public Binding {
public:
    ChannelSelectorBinding(FormView& view, ChannelSelector& control, ChannelBrowser& browser);

    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    void refresh(Aspect aspect) override;

private:
    void showEntries();
    void showSelection();
    void picked();
    void activated(const QTreeWidgetItem& item);
    void applyFilter();
    void followFilter();
    [[nodiscard]] std::size_t lineOf(const QTreeWidgetItem* item) const;

    ChannelSelector& selector_;
    ChannelBrowser& browser_;
    std::vector<QTreeWidgetItem*> items_; ///< by line
    bool showing_ = false;
};

} // namespace ko
