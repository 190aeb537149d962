#include "widgets/bindings/GridBinding.h"

#include "widgets/bindings/FormView.h"
#include "widgets/support/Guarded.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

namespace ko {

namespace {

constexpr int shownColumns = 2;

QFont fontOf(const QTableWidget& table, const Font& font)
{
    QFont own = table.font();
    own.setBold(font.bold);
    own.setItalic(font.italic);
    return own;
}

/// A centred check box. Like the list it takes no focus; the table keeps it.
class CheckCell : public QWidget {
public:
    CheckCell() : box(new QCheckBox(this))
    {
        box->setFocusPolicy(Qt::NoFocus);
        setAutoFillBackground(true);
        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(box, 0, Qt::AlignCenter);
        showFrame();
    }

    QCheckBox* box;

protected:
    void changeEvent(QEvent* event) override
    {
        QWidget::changeEvent(event);
        if (event->type() == QEvent::PaletteChange)
            showFrame();
    }

private:
    /// A style may derive the frame from the window's colour, which is invisible on a dark field.
    void showFrame()
    {
        QPalette seen = palette();
        const QColor field = seen.color(QPalette::Base);
        if (field.lightness() >= 128)
            return box->setPalette({});
        seen.setColor(QPalette::Window, seen.color(QPalette::Text));
        box->setPalette(seen);
    }
};

class ListCell : public QComboBox {
public:
    ListCell()
    {
        setFocusPolicy(Qt::NoFocus);
        setFrame(false);
    }

protected:
    /// The wheel scrolls the table and changes no value.
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

QString checkText(bool on)
{
    return on ? QStringLiteral("True") : QStringLiteral("False");
}

QStringList textsOf(const std::vector<std::string>& choices)
{
    QStringList texts;
    for (const std::string& choice : choices)
        texts.push_back(toQt(choice));
    return texts;
}

} // namespace

GridBinding::GridBinding(FormView& view, Grid& control, QTableWidget& table)
    : Binding(view, control, table), grid_(control), table_(table), editor_(view, control, table)
{
    table.setColumnCount(shownColumns);
    table.setTabKeyNavigation(false);
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table.setSelectionMode(QAbstractItemView::SingleSelection);
    table.verticalHeader()->hide();
    table.horizontalHeader()->setStretchLastSection(true);
    table.horizontalHeader()->setHighlightSections(false);
    table.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table.viewport()->installEventFilter(this);
    table.installEventFilter(this);
    onSignal(&table, &QTableWidget::cellClicked, this, [this](int row, int column) {
        if (column == Grid::valueColumn)
            open(row + 1);
    });
    refreshAll();
}

void GridBinding::refresh(Aspect aspect)
{
    switch (aspect) {
    case Aspect::Items: showRows(); break;
    case Aspect::Text:
    case Aspect::Selection: editor_.follow(); break;
    case Aspect::Usability:
        Binding::refresh(aspect);
        showRows();
        break;
    default: Binding::refresh(aspect);
    }
}

void GridBinding::showRows()
{
    table_.setRowCount(grid_.rowCount());
    for (int column = 0; column < shownColumns; ++column) {
        showHeader(column);
        for (int row = 1; row <= grid_.rowCount(); ++row)
            showCell(row, column);
    }
    showWidths();
}

void GridBinding::showHeader(int column)
{
    const Grid::Cell& cell = grid_.cell(0, column);
    auto* item = new QTableWidgetItem(toQt(cell.value));
    item->setFont(fontOf(table_, grid_.colHeaderStyle().font));
    item->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table_.setHorizontalHeaderItem(column, item);
}

void GridBinding::showCell(int row, int column)
{
    const Grid::Cell& cell = grid_.cell(row, column);
    QTableWidgetItem* item = table_.item(row - 1, column);
    if (!item) {
        item = new QTableWidgetItem;
        table_.setItem(row - 1, column, item);
    }
    item->setText(toQt(cell.value));
    // Read-only cells do not look like a field.
    const SystemColor interior = cell.style.readOnly ? SystemColor::inactiveBorder : cell.style.interior;
    item->setBackground(table_.palette().brush(roleOf(interior)));
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    if (column != Grid::valueColumn)
        return;
    switch (cell.style.control) {
    case CellStyle::Control::check: showCheck(row); break;
    case CellStyle::Control::list: showList(row); break;
    case CellStyle::Control::edit: showText(row); break;
    }
}

/// The cell's widget of type `W`; replaces a widget of another type.
template <class W> W* GridBinding::cellWidget(int row)
{
    auto* widget = dynamic_cast<W*>(table_.cellWidget(row - 1, Grid::valueColumn));
    if (!widget) {
        widget = new W;
        table_.setCellWidget(row - 1, Grid::valueColumn, widget);
    }
    return widget;
}

void GridBinding::showCheck(int row)
{
    QCheckBox* box = cellWidget<CheckCell>(row)->box;
    box->disconnect(this);
    box->setChecked(checkState(grid_.cell(row, Grid::valueColumn).value).value_or(false));
    box->setEnabled(grid_.isEditable(row));
    box->setAccessibleName(toQt(grid_.cell(row, Grid::nameColumn).value));
    onSignal(box, &QCheckBox::clicked, this, [this, row](bool on) { edited(row, checkText(on)); });
}

void GridBinding::showList(int row)
{
    const Grid::Cell& cell = grid_.cell(row, Grid::valueColumn);
    auto* list = cellWidget<ListCell>(row);
    list->disconnect(this);
    list->clear();
    list->addItems(textsOf(cell.style.choices));
    // Also shows a value that is not among the choices.
    list->setPlaceholderText(toQt(cell.value));
    list->setCurrentIndex(list->findText(toQt(cell.value), Qt::MatchFixedString | Qt::MatchCaseSensitive));
    list->setEnabled(grid_.isEditable(row));
    list->setAccessibleName(toQt(grid_.cell(row, Grid::nameColumn).value));
    onSignal(
        list, &QComboBox::textActivated, this, [this, row](const QString& text) { edited(row, text); },
        Qt::QueuedConnection);
}

void GridBinding::showText(int row)
{
    QWidget* widget = table_.cellWidget(row - 1, Grid::valueColumn);
    if (widget && widget != editor_.box())
        table_.removeCellWidget(row - 1, Grid::valueColumn);
}

void GridBinding::showWidths()
{
    const int inner = table_.viewport()->width();
    const std::int32_t wanted = grid_.columnWidth(0);
    table_.setColumnWidth(0, wanted > 0 ? std::min(toPixels(table_, wanted), inner * 3 / 4) : inner / 2);
}

void GridBinding::reportSize()
{
    const QScrollBar* bar = table_.verticalScrollBar();
    const int width = table_.viewport()->width() + (bar->isVisible() ? bar->width() : 0);
    const int rowHeight = std::max(table_.verticalHeader()->defaultSectionSize(), 1);
    grid_.setInnerWidth(toTwips(table_, width));
    grid_.setVisibleRows(table_.viewport()->height() / rowHeight);
}

/// Returns whether this object still exists afterwards.
bool GridBinding::edited(int row, const QString& text)
{
    if (!view_.act([&] { grid_.userEditedCell(row, fromQt(text)); }))
        return false;
    // Restores the displayed value if the grid has refused the edit.
    showRows();
    return true;
}

/// Activates the value cell of a row. Returns whether this object still exists afterwards.
bool GridBinding::open(int row)
{
    if (row < 1 || row > grid_.rowCount() || !grid_.isEditable(row))
        return true;
    QWidget* widget = table_.cellWidget(row - 1, Grid::valueColumn);
    if (auto* check = dynamic_cast<CheckCell*>(widget))
        return edited(row, checkText(!check->box->isChecked()));
    if (auto* list = dynamic_cast<ListCell*>(widget)) {
        list->showPopup();
        return true;
    }
    const FocusKeeper::Hold hold(view_.focus());
    return view_.act([&] { grid_.userOpenedCell(row); });
}

bool GridBinding::keyPressed(const QKeyEvent& key)
{
    const int row = table_.currentRow() + 1;
    if (editor_.box() || row < 1)
        return false;
    const bool opens = key.key() == Qt::Key_F2 || key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter ||
                       key.key() == Qt::Key_Space;
    if (opens) {
        open(row);
        return true;
    }
    const bool types = !key.text().isEmpty() && key.text().at(0).isPrint() &&
                       !key.modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier);
    if (!types || dynamic_cast<QComboBox*>(table_.cellWidget(row - 1, Grid::valueColumn)) ||
        dynamic_cast<CheckCell*>(table_.cellWidget(row - 1, Grid::valueColumn)))
        return false;
    if (open(row) && editor_.box())
        editor_.box()->insert(key.text());
    return true;
}

/// Shows the current cell as selected only while the table has the focus; a focus change to a popup or another window
/// is ignored.
void GridBinding::focusChanged(const QFocusEvent& event)
{
    if (event.reason() == Qt::PopupFocusReason || event.reason() == Qt::ActiveWindowFocusReason)
        return;
    if (!event.gotFocus())
        table_.clearSelection();
    else if (table_.currentRow() < 0)
        table_.setCurrentCell(0, Grid::valueColumn);
    else
        table_.setCurrentCell(table_.currentRow(), table_.currentColumn());
}

bool GridBinding::eventFilter(QObject* object, QEvent* event)
{
    if (object == &table_) {
        if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
            focusChanged(*static_cast<QFocusEvent*>(event));
        return event->type() == QEvent::KeyPress && keyPressed(*static_cast<QKeyEvent*>(event));
    }
    if (event->type() == QEvent::Resize) {
        reportSize();
        showWidths();
    }
    if (event->type() == QEvent::PaletteChange)
        showRows();
    return false;
}

} // namespace ko
