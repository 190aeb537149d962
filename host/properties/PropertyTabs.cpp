#include "host/properties/PropertyTabs.h"

#include "host/support/HostTexts.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PlainText.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QScrollArea>
#include <array>

namespace ko {

namespace {

namespace named = textNumber::properties;

/// A quantity of the timebase and the captions of its rate and its period; a block size has neither.
struct SampledQuantity {
    std::string path;
    int title = 0;
    int rate = 0;
    int period = 0;
    bool isRateFirst = false;
};

struct Member {
    const char* path;
    int label;
};

constexpr std::array ranksAndLines{
    Member{"startMasterRank", hostText::startMasterRank}, Member{"startTriggerLine", hostText::startLine},
    Member{"startTriggerInput", hostText::startInput},    Member{"scanMasterRank", hostText::syncMasterRank},
    Member{"scanTriggerLine", hostText::syncLine},        Member{"scanTriggerInput", hostText::syncInput}};

constexpr std::array lineLists{Member{"startLinesAsMaster", named::startLinesAsMaster},
                               Member{"startLinesAsListener", named::startLinesAsListener},
                               Member{"scanLinesAsMaster", named::syncLinesAsMaster},
                               Member{"scanLinesAsListener", named::syncLinesAsListener}};

void addUnits(const PropertyContext& context, QFormLayout& form, const SampledQuantity& quantity)
{
    const Texts& texts = context.texts;
    auto* const units = new QComboBox(form.parentWidget());
    units->addItems({texts(quantity.rate), texts(quantity.period)});
    units->setCurrentIndex(quantity.isRateFirst ? 0 : 1);
    units->setAccessibleName(texts(named::enteredAs));
    units->setObjectName(toQt(quantity.path));
    auto* const caption = new PlainLabel(texts(named::enteredAs), form.parentWidget());
    caption->setBuddy(units);
    form.addRow(caption, units);
    onSignal(units, &QComboBox::currentIndexChanged, units,
             [&fields = context.fields, path = quantity.path](int index) {
                 fields.setForm(path + ".choices", index == 0 ? TextForm::Rates : TextForm::Numbers);
                 fields.setForm(path + ".range", index == 0 ? TextForm::Rates : TextForm::Numbers);
                 fields.setForm(path + ".value", index == 0 ? TextForm::Rate : TextForm::Number);
             });
}

QGroupBox* makeQuantity(const PropertyContext& context, const SampledQuantity& quantity, QWidget* parent)
{
    const Texts& texts = context.texts;
    auto* const group = new QGroupBox(texts(quantity.title), parent);
    auto* const form = new QFormLayout(group);
    if (quantity.rate > 0)
        addUnits(context, *form, quantity);
    const TextForm list = quantity.isRateFirst ? TextForm::Rates : TextForm::Numbers;
    context.fields.addBox(*form, texts(named::choices), quantity.path + ".choices", list)
        .setPlaceholderText(texts(named::choicesHint));
    context.fields.addBox(*form, texts(named::range), quantity.path + ".range", list)
        .setPlaceholderText(texts(named::rangeHint));
    context.fields.addBox(*form, texts(hostText::value), quantity.path + ".value",
                          quantity.isRateFirst ? TextForm::Rate : TextForm::Number);
    std::vector<std::string_view> names{""};
    names.insert(names.end(), keepsNames.begin(), keepsNames.end());
    QStringList shown;
    for (int i = 0; i < static_cast<int>(names.size()); ++i)
        shown << texts(named::keepsDefault + i);
    context.fields.addList(*form, texts(named::keeps), quantity.path + ".keeps", names, shown);
    return group;
}

/// Adds a check box for a view of the instrument, without which `content` is disabled. It is reached before the boxes
/// that are added to `content` later.
void addViewSwitch(const PropertyContext& context, QBoxLayout& column, const char* view, int label, QWidget* content)
{
    auto* const box = new QCheckBox(context.texts(label), content->parentWidget());
    box->setObjectName(QLatin1String(view));
    box->setChecked(context.properties.has(view));
    box->setEnabled(!context.isLocked);
    content->setEnabled(box->isChecked());
    column.addWidget(box);
    column.addWidget(content);
    onSignal(box, &QCheckBox::toggled, content, [&context = context, view, content](bool on) {
        context.fields.take();
        context.properties.setHas(view, on);
        content->setEnabled(on);
    });
}

bool isDynamic(const InstrumentProperties& properties)
{
    return properties.text("measurementMode", TextForm::Number) == "1" &&
           properties.text("samplingMode", TextForm::Number) == "1";
}

} // namespace

QWidget* scrolledTab(QWidget& content, QWidget* parent)
{
    auto* const area = new QScrollArea(parent);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(&content);
    // The tab's background is seen through.
    content.setAutoFillBackground(false);
    area->viewport()->setAutoFillBackground(false);
    return area;
}

QComboBox& makeKindList(const PropertyContext& context, QWidget* parent)
{
    auto* const kind = new QComboBox(parent);
    kind->setObjectName(QStringLiteral("kind"));
    kind->setAccessibleName(context.texts(named::kind));
    kind->addItems({context.texts(named::dynamicKind), context.texts(named::staticKind)});
    kind->setCurrentIndex(isDynamic(context.properties) ? 0 : 1);
    kind->setEnabled(!context.isLocked);
    onSignal(kind, &QComboBox::activated, kind, [&properties = context.properties](int index) {
        if (isDynamic(properties) == (index == 0))
            return;
        properties.setText("measurementMode", TextForm::Number, index == 0 ? "1" : "2");
        properties.setText("samplingMode", TextForm::Number, "1");
    });
    return *kind;
}

QWidget* makeSamplingTab(const PropertyContext& context, QComboBox& kind, QWidget* parent)
{
    auto* const tab = new QWidget;
    auto* const column = new QVBoxLayout(tab);
    auto* const content = new QWidget(tab);
    auto* const groups = new QVBoxLayout(content);
    groups->setContentsMargins(0, 0, 0, 0);
    addViewSwitch(context, *column, "timebase", named::hasTimebase, content);
    const auto add = [&](const SampledQuantity& quantity) {
        QGroupBox* const group = makeQuantity(context, quantity, content);
        groups->addWidget(group);
        return group;
    };
    QGroupBox* const samples = add({"timebase.samplePeriod", hostText::samplePeriod, textNumber::page::sampleRate,
                                    textNumber::page::samplePeriod, true});
    QGroupBox* const blocks = add({"timebase.blockSize", hostText::blockSize});
    QGroupBox* const scans = add(
        {"timebase.scanPeriod", hostText::scanPeriod, textNumber::page::scanRate, textNumber::page::scanPeriod, false});
    const auto follow = [samples, blocks, scans](int index) {
        samples->setVisible(index == 0);
        blocks->setVisible(index == 0);
        scans->setVisible(index == 1);
    };
    follow(kind.currentIndex());
    onSignal(&kind, &QComboBox::currentIndexChanged, tab, follow);
    column->addStretch();
    return scrolledTab(*tab, parent);
}

QWidget* makeLinesTab(const PropertyContext& context, QWidget* parent)
{
    auto* const tab = new QWidget;
    auto* const column = new QVBoxLayout(tab);
    auto* const content = new QWidget(tab);
    auto* const form = new QFormLayout(content);
    form->setContentsMargins(0, 0, 0, 0);
    addViewSwitch(context, *column, "triggerLines", named::hasLines, content);
    for (const Member& it : ranksAndLines)
        context.fields.addBox(*form, context.texts(it.label), std::string("triggerLines.") + it.path, TextForm::Number);
    for (const Member& it : lineLists)
        context.fields.addBox(*form, context.texts(it.label), std::string("triggerLines.") + it.path, TextForm::Numbers)
            .setPlaceholderText(context.texts(named::linesHint));
    column->addStretch();
    return scrolledTab(*tab, parent);
}

} // namespace ko
