#include "widgets/dialogs/OffersDialog.h"

#include "widgets/bindings/FormView.h"
#include "widgets/support/Delay.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PageTexts.h"
#include "widgets/support/PlainText.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace ko {

namespace {

/// Left-aligns sentences.
class SentenceDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->displayAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    }
};

int widestWord(const QFontMetrics& metrics, const QString& text)
{
    int widest = 0;
    for (const QString& word : text.split(u' '))
        widest = std::max(widest, metrics.horizontalAdvance(word));
    return widest;
}

class OffersView : public FormView {
public:
    OffersView(ShowOffers& form, const Texts& texts) : FormView(form, texts), table_(table(form.tblOffers))
    {
        table_.setAccessibleName(text(textNumber::offers::title));
        table_.setItemDelegate(new SentenceDelegate(&table_));
        QHeaderView& columns = *table_.horizontalHeader();
        columns.setDefaultAlignment(Qt::AlignCenter | static_cast<Qt::Alignment>(Qt::TextWordWrap));
        columns.setMinimumHeight(columns.sizeHint().height() + fontMetrics().lineSpacing());
        onSignal(&fit_, &QTimer::timeout, &table_, [this] { fit(); });
        onSignal(table_.model(), &QAbstractItemModel::dataChanged, this, [this] { fit_.start(0); });
        fit_.start(0);
        QLabel& common = label(form.lblCommon);
        common.setWordWrap(true);
        common.setTextFormat(Qt::PlainText);
        auto* whole = new QVBoxLayout(this);
        whole->addWidget(&common);
        whole->addWidget(&table_);
        whole->addLayout(lastRow(form));
    }

    /// Large enough for a few drivers without scrolling.
    [[nodiscard]] QSize sizeHint() const override
    {
        return FormView::sizeHint().expandedTo({fontMetrics().averageCharWidth() * 135, fontMetrics().height() * 26});
    }
    /// Otherwise the dialog would take its height from the label instead of the size hint.
    [[nodiscard]] bool hasHeightForWidth() const override { return false; }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        FormView::resizeEvent(event);
        tellSize();
        fit_.start(0);
    }
    /// Enter in the editor sets the value instead of closing the dialog.
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress)
            return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter)
            return FormView::eventFilter(object, event);
        setAll_->click();
        return true;
    }

private:
    /// What sets a quantity of all drivers, and the button that closes the dialog.
    QLayout* lastRow(ShowOffers& form)
    {
        auto* row = new QHBoxLayout;
        QComboBox& quantity = comboBox(form.cmbQuantity);
        quantity.setAccessibleName(text(textNumber::compare::quantity));
        quantity.setSizeAdjustPolicy(QComboBox::AdjustToContents);
        QLineEdit& value = numberBox(form.txtValue);
        value.setAccessibleName(text(textNumber::page::value));
        value.installEventFilter(this);
        setAll_ = &button(form.cmdSetAll);
        setAll_->setToolTip(plainTip(text(textNumber::compare::setAllHint)));
        row->addWidget(&quantity);
        row->addWidget(&value);
        row->addWidget(setAll_);
        row->addStretch();
        row->addWidget(&button(form.btnClose));
        return row;
    }

    /// Columns of values are as wide as their longest cell or word of the header; columns of sentences share the rest.
    void fit()
    {
        constexpr int sentences = 3;
        const QFontMetrics metrics(bold());
        const int margin = 2 * metrics.averageCharWidth();
        const int values = table_.columnCount() - sentences;
        int used = 0;
        for (int column = 0; column < values; ++column) {
            // The header has room for two lines.
            const QString header = table_.horizontalHeaderItem(column)->text();
            int width = std::max(widestWord(metrics, header), metrics.horizontalAdvance(header) * 3 / 5);
            for (int row = 0; row < table_.rowCount(); ++row)
                width = std::max(width, metrics.horizontalAdvance(table_.item(row, column)->text()));
            table_.setColumnWidth(column, width + margin);
            used += width + margin;
        }
        const int share = (table_.viewport()->width() - used) / sentences;
        for (int column = std::max(values, 0); column < table_.columnCount(); ++column)
            table_.setColumnWidth(column, std::max(share, metrics.averageCharWidth() * 24));
        QHeaderView& rows = *table_.verticalHeader();
        rows.setMinimumSectionSize(rows.defaultSectionSize());
        table_.resizeRowsToContents();
        if (isNew_)
            for (const int column : {table_.columnCount() - 1, table_.currentColumn()})
                table_.scrollTo(table_.model()->index(table_.currentRow(), column));
        isNew_ = false;
    }
    [[nodiscard]] QFont bold() const
    {
        QFont font = table_.font();
        font.setBold(true);
        return font;
    }

    QTableWidget& table_;
    QPushButton* setAll_ = nullptr;
    bool isNew_ = true; ///< the user has not moved yet
    Delay fit_;         ///< fits the table after its content or its size has changed
};

} // namespace

void addOffersDialog(QtModalForms& modalForms, ShowOffers& showOffers, const Texts& texts)
{
    modalForms.add(showOffers, [&showOffers, texts] { return new OffersView(showOffers, texts); });
}

} // namespace ko
