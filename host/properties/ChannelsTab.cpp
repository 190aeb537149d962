#include "host/properties/ChannelsTab.h"

#include "host/support/HostTexts.h"
#include "host/toolkit/DockLayout.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/ShownText.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>
#include <array>

namespace ko {

namespace {

namespace named = textNumber::properties;

constexpr int pathRole = Qt::UserRole;
constexpr int widestName = 36; ///< in characters; longer names leave the fields beside the list their room

struct SignalMember {
    const char* path;
    int label;
};

constexpr std::array leftMembers{SignalMember{"signal.frequency", named::frequency},
                                 SignalMember{"signal.amplitude", named::amplitude},
                                 SignalMember{"signal.offset", named::offset}};
constexpr std::array rightMembers{SignalMember{"signal.phase", named::phase},
                                  SignalMember{"signal.noise", named::noise}, SignalMember{"signal.seed", named::seed}};

} // namespace

ChannelsTab::ChannelsTab(const PropertyContext& context, const std::vector<GroupSettings>& groups, QWidget* parent)
    : QWidget(parent), fields_(context.properties, context.isLocked), list_(new QListWidget(this)),
      content_(new QWidget), table_(new ParameterTable(context.texts, context.properties, context.isLocked, content_))
{
    fillList(groups);
    list_->setObjectName(QStringLiteral("channels"));
    list_->setAccessibleName(context.texts(textNumber::page::channels));
    auto* const row = new QHBoxLayout(this);
    auto* const splitter = new QSplitter(this);
    splitter->addWidget(list_);
    splitter->addWidget(scrolledTab(*content_, splitter));
    splitter->setStretchFactor(1, 1);
    list_->setSizeAdjustPolicy(QListWidget::AdjustToContents);
    list_->setMaximumWidth(list_->fontMetrics().averageCharWidth() * widestName);
    row->addWidget(splitter);
    auto* const column = new QVBoxLayout(content_);
    column->setContentsMargins(0, 0, 0, 0);
    fields_.setOwner(channelPath(0, 0) + ".");
    addFields(context, *column);
    addTable(context, *column);
    onSignal(list_, &QListWidget::currentRowChanged, this, [this] { showCurrent(); });
    content_->setEnabled(list_->count() > 0);
    list_->setCurrentRow(0);
}

void ChannelsTab::fillList(const std::vector<GroupSettings>& groups)
{
    for (std::size_t g = 0; g < groups.size(); ++g)
        for (std::size_t c = 0; c < groups[g].channels.size(); ++c) {
            const ChannelSettings& channel = groups[g].channels[c];
            const std::string name = channel.name.empty() ? channel.address : channel.name;
            auto* const item = new QListWidgetItem(toLine(groups[g].name + ": " + name), list_);
            item->setData(pathRole, toQt(channelPath(g, c)));
        }
}

void ChannelsTab::addFields(const PropertyContext& context, QBoxLayout& column)
{
    const Texts& texts = context.texts;
    auto* const row = new QHBoxLayout;
    auto* const left = new QFormLayout;
    auto* const right = new QFormLayout;
    column.addLayout(row);
    row->addLayout(left);
    row->addLayout(right);
    QStringList shapes;
    for (int i = 0; i < static_cast<int>(shapeNames.size()); ++i)
        shapes << texts(named::sine + i);
    fields_.addList(*left, texts(named::signal), "signal.shape", shapeNames, shapes);
    for (const SignalMember& it : leftMembers)
        fields_.addBox(*left, texts(it.label), it.path, TextForm::Number);
    fields_.addBox(*right, texts(named::unit), "unit", TextForm::Text);
    for (const SignalMember& it : rightMembers)
        fields_.addBox(*right, texts(it.label), it.path, TextForm::Number);
    fields_.addBox(*left, texts(named::range), "range", TextForm::Numbers).setPlaceholderText(texts(named::rangeHint));
}

void ChannelsTab::addTable(const PropertyContext& context, QBoxLayout& column)
{
    auto* const form = new QFormLayout;
    column.addLayout(form);
    fields_.addSwitch(*form, context.texts(named::canTrigger), "canTrigger");
    context.fields.addSwitch(*form, context.texts(named::hasParameters), "hasTriggerParameters");
    column.addWidget(table_);
    auto* const buttons = new QHBoxLayout;
    column.addLayout(buttons);
    buttons->addStretch();
    const auto add = [&](int text, const char* name) {
        auto* const button = new QPushButton(context.texts(text), content_);
        button->setObjectName(QLatin1String(name));
        button->setAutoDefault(false);
        button->setEnabled(!context.isLocked);
        buttons->addWidget(button);
        return button;
    };
    auto* const adds = add(named::add, "addParameter");
    auto* const removes = add(named::remove, "removeParameter");
    onSignal(adds, &QPushButton::clicked, this,
             [this, name = context.texts(named::newParameter)] { table_->addParameter(name); });
    onSignal(removes, &QPushButton::clicked, this, [this] { table_->removeParameter(); });
}

void ChannelsTab::take()
{
    commitEditor(*table_);
    fields_.take();
}

void ChannelsTab::showCurrent()
{
    const std::string path = fromQt(list_->currentItem()->data(pathRole).toString());
    fields_.setOwner(path + ".");
    table_->show(path);
}

void ChannelsTab::showChannel(const std::string& path)
{
    bringForward(*list_);
    for (int row = 0; row < list_->count(); ++row)
        if (list_->item(row)->data(pathRole).toString() == toQt(path))
            list_->setCurrentRow(row);
    list_->setFocus();
}

QString ChannelsTab::focusOn(const PropertyRefusal& refusal)
{
    for (int row = 0; row < list_->count(); ++row)
        if (refusal.path().rfind(fromQt(list_->item(row)->data(pathRole).toString()) + ".", 0) == 0) {
            list_->setCurrentRow(row);
            bringForward(*table_);
            const QString name = table_->focusOn(refusal);
            return name.isEmpty() ? fields_.focusOn(refusal) : name;
        }
    return {};
}

} // namespace ko
