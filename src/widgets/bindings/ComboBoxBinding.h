#pragma once

#include "platform/ComboBox.h"
#include "widgets/bindings/Binding.h"

#include <QAbstractListModel>
#include <QComboBox>

class QLineEdit;

namespace ko {

/// Reads the entries of a combo box control only when they are displayed, so that long lists cost nothing.
class ItemsModel : public QAbstractListModel {
public:
    ItemsModel(const ComboBox& control, Qt::Alignment alignment, QObject* parent);

    /// Must be called when the control's entries have changed.
    void reload();

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    const ComboBox& control_;
    Qt::Alignment alignment_;
    int count_ = 0;
};

/// A combo box control in a combo box that cannot be typed in.
class ComboBoxBinding : public Binding {
public:
    ComboBoxBinding(FormView& view, ComboBox& control, QComboBox& widget);

    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    void refresh(Aspect aspect) override;
    void refreshUsability() override;
    [[nodiscard]] bool showsValue() const override { return true; }

private:
    void chosen(int index);
    void showItems();
    void showReading();

    ComboBox& list_;
    QComboBox& combo_;
    ItemsModel* items_;
    QLineEdit* reading_ = nullptr; ///< covers the box with its text while the form is only read
};

} // namespace ko
