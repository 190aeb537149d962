#include "host/sheet/SetupSheet.h"

#include "host/instruments/HeldNumbers.h"
#include "host/sheet/InstrumentRow.h"
#include "host/sheet/SheetHtml.h"
#include "host/sheet/SheetTexts.h"
#include "host/support/HostTexts.h"
#include "page/Differences.h"
#include "platform/DateTimes.h"
#include "widgets/support/Convert.h"
#include "widgets/support/ShownText.h"

namespace ko {

namespace {

using Kind = InstrumentRow::Kind;
using Cells = QStringList;
using Rows = QList<QStringList>;

const QString nothing = QStringLiteral("\u2013");

QString known(const QString& value)
{
    return value.isEmpty() ? nothing : value;
}

QString fileOf(const SheetSource& source)
{
    const QString file = source.file.empty() ? nothing : toShown(source.file);
    return source.isChanged ? source.texts(sheetText::changed).arg(file) : file;
}

QString dateOf(const SheetSource& source)
{
    return toShown(generalDate(source.made, source.locale));
}

class Sheet {
public:
    explicit Sheet(const SheetSource& source) : source_(source), page_(source.page), root_(source.drivers) {}

    QString whole()
    {
        head();
        measurements();
        schedule();
        html_.heading(2, plain(hostText::instruments));
        instruments(Kind::Timebase, hostText::timebase, quantityCount());
        instruments(Kind::Lines, hostText::triggerLines, lineCount());
        html_.heading(2, text(textNumber::page::channels));
        for (const auto& instrument : root_.rows())
            channels(*instrument);
        return html_.document(text(hostText::languageCode), named(text(sheetText::sheet), name()));
    }

private:
    [[nodiscard]] QString text(int number) const { return source_.texts(number); }
    [[nodiscard]] QString plain(int number) const { return withoutMnemonic(text(number)); }
    [[nodiscard]] QString named(const QString& name, const QString& value) const
    {
        return text(sheetText::namedValue).arg(name, value);
    }
    [[nodiscard]] QString name() const { return toShown(source_.file.empty() ? source_.title : source_.file); }

    /// Returns a caption without mnemonic and colon.
    static QString caption(const CaptionControl& control)
    {
        QString name = withoutMnemonic(toShown(control.caption())).trimmed();
        while (name.endsWith(u':') || name.endsWith(u' ') || name.endsWith(QChar::Nbsp))
            name.chop(1);
        return name;
    }
    static Cells entry(const Label& title, const Label& value) { return {caption(title), toShown(value.caption())}; }
    static Cells entry(const Label& title, const ComboBox& list, const TextBox& box)
    {
        return {caption(title), toShown(list.visible() ? list.text() : box.text())};
    }

    void head();
    void measurements(const Frame& frame, const Rows& figures);
    void measurements();
    void schedule();
    [[nodiscard]] Rows trigger() const;
    void instruments(Kind kind, int heading, std::size_t columns);
    void channels(InstrumentRow& instrument);
    [[nodiscard]] Cells channel(InstrumentRow& group, InstrumentRow& row) const;
    [[nodiscard]] QString parameters(InstrumentRow& channel) const;
    [[nodiscard]] QString valueIn(const InstrumentRow& row) const;
    [[nodiscard]] bool isOtherThanPage(const InstrumentRow& row) const;

    const SheetSource& source_;
    const Page& page_;
    InstrumentRow root_;
    SheetHtml html_;
};

void Sheet::head()
{
    html_.heading(1, named(text(sheetText::sheet), toShown(source_.title)));
    html_.values({{text(sheetText::file), fileOf(source_)}, {text(sheetText::made), dateOf(source_)}});
    html_.heading(2, text(sheetText::plan));
    html_.paragraph(QStringLiteral("plan"), toShown(page_.lblPlan.caption()));
}

/// Writes a frame's quantities, then the figures computed from them.
void Sheet::measurements(const Frame& frame, const Rows& figures)
{
    if (!frame.isShown())
        return;
    html_.heading(2, caption(frame));
    Rows rows;
    for (const Quantity& quantity : quantities)
        if (&(page_.*quantity.number->frame) == &frame)
            rows.push_back(entry(page_.*quantity.label, page_.*quantity.list, page_.*quantity.box));
    rows += figures;
    html_.values(rows);
}

void Sheet::measurements()
{
    measurements(page_.frmDynamic,
                 {entry(page_.lblSpan, page_.lblSpanValue), entry(page_.lblNumSamples, page_.lblNumSamplesValue),
                  entry(page_.lblNumDynamicBytes, page_.lblNumDynamicBytesValue)});
    measurements(page_.frmStatic, {entry(page_.lblNumScans, page_.lblNumScansValue),
                                   entry(page_.lblNumStaticBytes, page_.lblNumStaticBytesValue)});
}

void Sheet::schedule()
{
    if (!page_.frmStart.isShown())
        return;
    html_.heading(2, text(sheetText::schedule));
    Rows rows;
    QString start;
    for (const OptionButton* option : {&page_.optImmediate, &page_.optStartTime, &page_.optOnTrigger})
        if (option->value())
            start = caption(*option);
    rows << Cells{text(hostText::startMode), known(start)};
    if (page_.optStartTime.value())
        rows << Cells{text(hostText::startTime), known(toShown(page_.txtStartTime.text()))};
    if (page_.optOnTrigger.value())
        rows << trigger();
    if (page_.optStopTime.value())
        rows << Cells{text(hostText::stopMode), known(toShown(page_.txtStopTime.text()))};
    else
        rows << Cells{text(hostText::duration),
                      page_.txtDuration.text().empty()
                          ? nothing
                          : toShown(page_.txtDuration.text()) + u' ' + toShown(page_.cmbInterval.text())};
    rows << entry(page_.lblDuration, page_.lblDurationValue);
    if (page_.lblStopTime.visible())
        rows << entry(page_.lblStopTime, page_.lblStopTimeValue);
    html_.values(rows);
}

Rows Sheet::trigger() const
{
    Rows rows{{caption(page_.lblChannel), toShown(page_.txtChannel.text())}};
    const Grid& grid = page_.grdParam;
    for (std::int32_t row = 1; row <= grid.rowCount(); ++row) {
        const Grid::Cell& value = grid.cell(row, Grid::valueColumn);
        QString shown = toShown(value.value);
        if (const auto state = checkState(value.value); state && value.style.control == CellStyle::Control::check)
            shown = text(*state ? hostText::yes : hostText::no);
        rows << Cells{toShown(grid.cell(row, Grid::nameColumn).value), shown};
    }
    return rows;
}

bool Sheet::isOtherThanPage(const InstrumentRow& row) const
{
    if (row.kind() != Kind::Quantity || row.item() >= heldNumbers.size())
        return false;
    const auto driver = static_cast<std::size_t>(row.parent()->parent()->number());
    return differs(page_, *heldNumbers[row.item()].number, driver);
}

/// Returns `nothing` for a value that the instrument lacks, for a negative line number, which means no line, and for
/// the time of a start that happens at another moment.
QString Sheet::valueIn(const InstrumentRow& row) const
{
    QString value = valueOf(row, source_.texts, source_.locale);
    if (isOtherThanPage(row))
        value = text(textNumber::compare::differing).arg(value);
    const bool isNoLine = row.kind() == Kind::Line && value.startsWith(u'-');
    return value.isEmpty() || isNoLine || isIdleStartTime(row) ? nothing : value;
}

/// Writes a table with a row for each instrument and a column for each of its values of one kind.
void Sheet::instruments(Kind kind, int heading, std::size_t columns)
{
    Cells header{text(hostText::instrument)};
    Rows rows;
    for (const auto& instrument : root_.rows()) {
        Cells cells{nameOf(*instrument, source_.texts)};
        for (const auto& part : instrument->rows())
            if (part->kind() == kind)
                for (const auto& value : part->rows()) {
                    cells << valueIn(*value);
                    if (header.size() <= static_cast<qsizetype>(columns))
                        header << nameOf(*value, source_.texts);
                }
        while (cells.size() <= static_cast<qsizetype>(columns))
            cells << nothing;
        rows << cells;
    }
    if (header.size() == 1)
        return;
    html_.heading(3, text(heading));
    html_.table(header, rows);
}

void Sheet::channels(InstrumentRow& instrument)
{
    Rows rows;
    for (const auto& group : instrument.rows())
        if (group->kind() == Kind::Group)
            for (const auto& row : group->rows())
                rows << channel(*group, *row);
    if (rows.isEmpty())
        return;
    html_.heading(3, nameOf(instrument, source_.texts));
    html_.table({text(sheetText::group), text(sheetText::channel), text(sheetText::isOn), text(hostText::triggerSource),
                 text(sheetText::parameters)},
                rows);
}

Cells Sheet::channel(InstrumentRow& group, InstrumentRow& row) const
{
    const ChannelSettings& channel = row.channelSettings();
    const auto yesOrNo = [this](bool yes) { return text(yes ? hostText::yes : hostText::no); };
    return {nameOf(group, source_.texts), nameOf(row, source_.texts), yesOrNo(channel.isEnabled()),
            channel.canTrigger ? yesOrNo(channel.triggerSource) : nothing, parameters(row)};
}

QString Sheet::parameters(InstrumentRow& channel) const
{
    QStringList all;
    for (const auto& parameter : channel.rows())
        all << named(nameOf(*parameter, source_.texts), valueIn(*parameter));
    return all.isEmpty() ? nothing : all.join(QStringLiteral("; "));
}

} // namespace

QString setupSheet(const SheetSource& source)
{
    return Sheet(source).whole();
}

QString sheetCaption(const SheetSource& source)
{
    return fileOf(source) + QStringLiteral("  \u00b7  ") + dateOf(source);
}

} // namespace ko
