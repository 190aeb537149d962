#include "host/properties/ParameterTable.h"

#include "host/support/HostTexts.h"
#include "platform/Scoped.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/ShownText.h"

#include <QComboBox>
#include <QHeaderView>
#include <QStyledItemDelegate>
#include <array>

namespace ko {

namespace {

namespace named = textNumber::properties;

struct Column {
    const char* key;
    int title;
};

constexpr std::array columns{Column{"id", named::id},       Column{"name", named::name},
                             Column{"type", named::type},   Column{"value", hostText::value},
                             Column{"min", named::minimum}, Column{"max", named::maximum},
                             Column{"role", named::role},   Column{"choices", named::parameterChoices}};

constexpr std::array typeNames{"Float", "Integer", "Bool", "Enum", "String", "StringReadOnly"};

const char* keyOf(int column)
{
    return columns.at(static_cast<std::size_t>(column)).key;
}

/// Returns the texts that are offered in cells of this column.
QStringList offeredIn(const QModelIndex& index)
{
    const std::string_view key = keyOf(index.column());
    QStringList offered;
    if (key == "type")
        offered = {typeNames.begin(), typeNames.end()};
    if (key == "role") {
        offered << QString();
        for (const std::string_view role : parameterRole::all)
            offered << toQt(std::string(role));
    }
    return offered;
}

/// Offers the known types and roles; a type of another name can be typed.
class CellDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// What is edited is the whole text.
    QString displayText(const QVariant& value, const QLocale&) const override { return toLine(value.toString()); }
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QStringList offered = offeredIn(index);
        if (offered.isEmpty())
            return QStyledItemDelegate::createEditor(parent, option, index);
        auto* const list = new QComboBox(parent);
        list->setEditable(true);
        list->addItems(offered);
        return list;
    }
    void setEditorData(QWidget* editor, const QModelIndex& index) const override
    {
        if (auto* const list = dynamic_cast<QComboBox*>(editor))
            list->setCurrentText(index.data().toString());
        else
            QStyledItemDelegate::setEditorData(editor, index);
    }
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override
    {
        if (auto* const list = dynamic_cast<QComboBox*>(editor))
            model->setData(index, list->currentText());
        else
            QStyledItemDelegate::setModelData(editor, model, index);
    }
};

} // namespace

ParameterTable::ParameterTable(const Texts& texts, InstrumentProperties& properties, bool isLocked, QWidget* parent)
    : QTableWidget(0, static_cast<int>(columns.size()), parent), properties_(properties)
{
    setObjectName(QStringLiteral("parameters"));
    setAccessibleName(texts(textNumber::sheet::parameters));
    QStringList titles;
    for (const Column& column : columns)
        titles << texts(column.title);
    setHorizontalHeaderLabels(titles);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    setMinimumHeight(fontMetrics().height() * 12);
    horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    horizontalHeader()->setStretchLastSection(true);
    setTabKeyNavigation(false);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setItemDelegate(new CellDelegate(this));
    if (isLocked)
        setEditTriggers(NoEditTriggers);
    onSignal(this, &QTableWidget::itemChanged, this, [this](QTableWidgetItem* item) { take(*item); });
}

void ParameterTable::show(const std::string& channel)
{
    channel_ = channel;
    fill();
}

std::string ParameterTable::parameterAt(int row) const
{
    return parameterPath(channel_, static_cast<std::size_t>(row));
}

std::string ParameterTable::memberAt(int row, int column) const
{
    return parameterAt(row).append(".").append(keyOf(column));
}

void ParameterTable::fill()
{
    setRowCount(channel_.empty() ? 0 : static_cast<int>(properties_.parameterCount(channel_)));
    for (int row = 0; row < rowCount(); ++row)
        fillRow(row);
}

void ParameterTable::fillRow(int row)
{
    const Scoped filling(isFilling_, true);
    for (int column = 0; column < columnCount(); ++column) {
        if (!item(row, column))
            setItem(row, column, new QTableWidgetItem);
        const TextForm form = properties_.parameterForm(parameterAt(row), keyOf(column));
        item(row, column)->setText(toQt(properties_.text(memberAt(row, column), form)));
    }
}

void ParameterTable::take(const QTableWidgetItem& item)
{
    if (isFilling_)
        return;
    properties_.setParameter(parameterAt(item.row()), keyOf(item.column()), fromQt(item.text()));
    fillRow(item.row());
}

void ParameterTable::addParameter(const QString& name)
{
    properties_.addParameter(channel_, fromQt(name));
    fill();
    setFocus();
    setCurrentCell(rowCount() - 1, 1);
    edit(currentIndex());
}

void ParameterTable::removeParameter()
{
    if (currentRow() < 0)
        return;
    properties_.removeParameter(channel_, static_cast<std::size_t>(currentRow()));
    fill();
}

QString ParameterTable::focusOn(const PropertyRefusal& refusal)
{
    for (int row = 0; row < rowCount(); ++row)
        for (int column = 0; column < columnCount(); ++column) {
            const std::string path = memberAt(row, column);
            if (refusal.path().compare(0, path.size(), path) != 0)
                continue;
            setCurrentCell(row, column);
            setFocus();
            return horizontalHeaderItem(column)->text();
        }
    return {};
}

} // namespace ko
