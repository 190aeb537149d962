#include "widgets/dialogs/OffersDialog.h"

#include "widgets/bindings/FormView.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PageTexts.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

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

class OffersView : public FormView {
public:
    OffersView(ShowOffers& form, const Texts& texts) : FormView(form, texts)
    {
        QTableWidget& table = this->table(form.tblOffers);
        table.setAccessibleName(text(textNumber::offers::title));
        table.setItemDelegate(new SentenceDelegate(&table));
        QHeaderView& columns = *table.horizontalHeader();
        columns.setSectionResizeMode(QHeaderView::Stretch);
        columns.setDefaultAlignment(Qt::AlignCenter | static_cast<Qt::Alignment>(Qt::TextWordWrap));
        columns.setMinimumHeight(columns.sizeHint().height() + fontMetrics().lineSpacing());
        fit_.setSingleShot(true);
        onSignal(&fit_, &QTimer::timeout, &table, [&table] {
            QHeaderView& rows = *table.verticalHeader();
            rows.setMinimumSectionSize(rows.defaultSectionSize());
            table.resizeRowsToContents();
        });
        onSignal(&columns, &QHeaderView::sectionResized, this, [this] { fit_.start(0); });
        QLabel& common = label(form.lblCommon);
        common.setWordWrap(true);
        common.setTextFormat(Qt::PlainText);
        QPushButton& close = button(form.btnClose);
        auto* buttons = new QHBoxLayout;
        buttons->addStretch(1);
        buttons->addWidget(&close);
        auto* whole = new QVBoxLayout(this);
        whole->addWidget(&common);
        whole->addWidget(&table, 1);
        whole->addLayout(buttons);
    }

    /// Large enough for a few drivers without scrolling.
    [[nodiscard]] QSize sizeHint() const override
    {
        return FormView::sizeHint().expandedTo({fontMetrics().averageCharWidth() * 135, fontMetrics().height() * 20});
    }
    /// Otherwise the dialog would take its height from the label instead of the size hint.
    [[nodiscard]] bool hasHeightForWidth() const override { return false; }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        FormView::resizeEvent(event);
        tellSize();
    }

private:
    QTimer fit_; ///< fits the row heights after the column widths are final
};

} // namespace

void addOffersDialog(QtModalForms& modalForms, ShowOffers& showOffers, const Texts& texts)
{
    modalForms.add(showOffers, [&showOffers, texts] { return new OffersView(showOffers, texts); });
}

} // namespace ko
