#include "host/properties/PropertyFields.h"

#include "widgets/support/PlainText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QScrollArea>
#include <QTabWidget>
#include <charconv>
#include <limits>

namespace ko {

namespace {

/// Returns the index with which the rest of a path begins, "[2]"; -1 without one.
int indexIn(const std::string& rest)
{
    int index = -1;
    if (!rest.empty())
        std::from_chars(rest.data() + 1, rest.data() + rest.size(), index);
    return index;
}

/// Selects an entry of a list that is separated by semicolons.
void selectEntry(QLineEdit& box, int index, bool isReversed)
{
    const QStringList entries = box.text().split(u';');
    const int count = static_cast<int>(entries.size()) - (entries.constLast().trimmed().isEmpty() ? 1 : 0);
    const int wanted = isReversed ? count - 1 - index : index;
    int start = 0;
    for (int i = 0; i < wanted && i < count; ++i)
        start += static_cast<int>(entries[i].size()) + 1;
    if (index >= 0 && wanted >= 0 && wanted < count)
        box.setSelection(start, static_cast<int>(entries[wanted].size()));
    else
        box.selectAll();
}

} // namespace

void bringForward(QWidget& widget)
{
    for (QWidget* page = &widget; page->parentWidget(); page = page->parentWidget())
        if (auto* const tabs = dynamic_cast<QTabWidget*>(page->parentWidget()->parentWidget()))
            tabs->setCurrentWidget(page);
        else if (auto* const area = dynamic_cast<QScrollArea*>(page))
            area->ensureWidgetVisible(&widget);
}

void PropertyFields::addRow(QFormLayout& form, const QString& label, Field field)
{
    field.box->setObjectName(toQt(field.path));
    field.box->setAccessibleName(label);
    if (dynamic_cast<QCheckBox*>(field.box)) {
        form.addRow(field.box);
    } else {
        auto* const caption = new PlainLabel(label, field.box->parentWidget());
        caption->setBuddy(field.box);
        form.addRow(caption, field.box);
    }
    show(fields_.emplace_back(std::move(field)));
}

QLineEdit& PropertyFields::addBox(QFormLayout& form, const QString& label, const std::string& path, TextForm as)
{
    auto* const box = new QLineEdit(form.parentWidget());
    // The toolkit's own limit would cut long lists.
    box->setMaxLength(std::numeric_limits<int>::max());
    box->setReadOnly(isLocked_);
    if (isLocked_)
        box->setPalette(readPalette());
    addRow(form, label,
           {path, as, box, [box] { return box->text(); },
            [box](const QString& text) {
                box->setText(text);
                box->setCursorPosition(0);
            }});
    return *box;
}

QComboBox& PropertyFields::addNames(QFormLayout& form, const QString& label, const std::string& path,
                                    const std::vector<std::string_view>& names, const QStringList& shown)
{
    auto* const box = new QComboBox(form.parentWidget());
    box->setEnabled(!isLocked_);
    for (std::size_t i = 0; i < names.size(); ++i)
        box->addItem(shown[static_cast<int>(i)], toQt(std::string(names[i])));
    addRow(form, label,
           {path, TextForm::Name, box, [box] { return box->currentData().toString(); },
            [box](const QString& name) { box->setCurrentIndex(box->findData(name)); }});
    return *box;
}

QCheckBox& PropertyFields::addSwitch(QFormLayout& form, const QString& label, const std::string& path)
{
    auto* const box = new QCheckBox(label, form.parentWidget());
    box->setEnabled(!isLocked_);
    addRow(form, label,
           {path, TextForm::Flag, box,
            [box] { return box->isChecked() ? QStringLiteral("true") : QStringLiteral("false"); },
            [box](const QString& flag) { box->setChecked(flag == u"true"); }});
    return *box;
}

void PropertyFields::setForm(const std::string& path, TextForm as)
{
    for (Field& field : fields_)
        if (field.path == path) {
            take(field);
            field.form = as;
            show(field);
        }
}

void PropertyFields::setOwner(const std::string& owner)
{
    take();
    owner_ = owner;
    show();
}

void PropertyFields::show()
{
    for (const Field& field : fields_)
        show(field);
}

void PropertyFields::take()
{
    for (const Field& field : fields_)
        take(field);
}

void PropertyFields::show(const Field& field) const
{
    field.write(toQt(properties_.text(owner_ + field.path, field.form)));
}

void PropertyFields::take(const Field& field)
{
    if (field.box->isEnabled())
        properties_.setText(owner_ + field.path, field.form, fromQt(field.read()));
}

QString PropertyFields::focusOn(const PropertyRefusal& refusal)
{
    for (const Field& field : fields_) {
        const std::string path = owner_ + field.path;
        if (refusal.path().compare(0, path.size(), path) != 0)
            continue;
        bringForward(*field.box);
        field.box->setFocus();
        if (auto* box = dynamic_cast<QLineEdit*>(field.box))
            selectEntry(*box, indexIn(refusal.path().substr(path.size())), field.form == TextForm::Rates);
        return field.box->accessibleName();
    }
    return {};
}

} // namespace ko
