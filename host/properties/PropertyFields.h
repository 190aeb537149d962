#pragma once

#include "host/setup/InstrumentProperties.h"
#include "widgets/support/Convert.h"

#include <functional>
#include <vector>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;

namespace ko {

/// Makes a widget's tab the current one and scrolls to the widget.
void bringForward(QWidget& widget);

/// The boxes for members of an instrument on one form. Paths are relative to an owner, for example a channel.
class PropertyFields {
public:
    /// `properties` must outlive this object. The boxes of a locked form can be read and copied only.
    PropertyFields(InstrumentProperties& properties, bool isLocked) : properties_(properties), isLocked_(isLocked) {}

    QLineEdit& addBox(QFormLayout& form, const QString& label, const std::string& path, TextForm as);
    /// Adds a list of names of set-up files, in their order, each with the text that is shown for it.
    template <class Names>
    QComboBox& addList(QFormLayout& form, const QString& label, const std::string& path, const Names& names,
                       const QStringList& shown)
    {
        return addNames(form, label, path, {names.begin(), names.end()}, shown);
    }
    QCheckBox& addSwitch(QFormLayout& form, const QString& label, const std::string& path);

    /// Shows a member in another form; what was typed in the old form is taken before.
    void setForm(const std::string& path, TextForm as);
    /// Shows the members of another owner, with a path such as "groups[0].channels[1]."; empty: the instrument.
    void setOwner(const std::string& owner);

    /// Shows the members.
    void show();
    /// Takes what is in the boxes that are enabled.
    void take();

    /// Moves the focus to the box of a refused member and selects the refused entry of a list. Returns the name of the
    /// box; an empty text if the member has none here.
    QString focusOn(const PropertyRefusal& refusal);

private:
    struct Field {
        std::string path;
        TextForm form = TextForm::Text;
        QWidget* box = nullptr;
        std::function<QString()> read;
        std::function<void(const QString&)> write;
    };

    QComboBox& addNames(QFormLayout& form, const QString& label, const std::string& path,
                        const std::vector<std::string_view>& names, const QStringList& shown);
    void addRow(QFormLayout& form, const QString& label, Field field);
    void show(const Field& field) const;
    void take(const Field& field);

    InstrumentProperties& properties_;
    bool isLocked_;
    std::string owner_;
    std::vector<Field> fields_;
};

} // namespace ko
