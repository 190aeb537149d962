#include "host/window/ReplayReport.h"

#include "host/support/HostTexts.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/ShownText.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <nlohmann/json.hpp>
#include <sstream>

namespace ko {

namespace {

namespace replayText = textNumber::replay;

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream input(text);
    for (std::string line; std::getline(input, line);)
        lines.push_back(line);
    return lines;
}

QString summary(const Texts& texts, const ReplayResult& result)
{
    const QString name = toLine(QFileInfo(toQt(result.file)).fileName());
    const QString line = QString::number(result.lastLine);
    if (!result.isWhole)
        return texts(replayText::stopped).arg(name, line);
    if (result.differences.empty())
        return texts(replayText::done).arg(name);
    return texts(replayText::differs).arg(name, QString::number(result.differences.size()));
}

QTreeWidget* table(const Texts& texts, const std::vector<ReplayDifference>& differences, QWidget* parent)
{
    auto* list = new QTreeWidget(parent);
    list->setHeaderLabels(
        {texts(replayText::line), texts(replayText::command), texts(replayText::expected), texts(replayText::found)});
    list->setAccessibleName(texts(replayText::title));
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    for (const ReplayDifference& difference : differences) {
        const QString found = difference.found ? toLine(*difference.found) : texts(replayText::noEffect);
        auto* row = new QTreeWidgetItem({QString::number(difference.line), toLine(difference.command),
                                         toLine(difference.expected.value_or("")), found});
        for (int column = 0; column < list->columnCount(); ++column)
            row->setData(column, Qt::ToolTipRole, plainTip(row->text(column)));
        list->addTopLevelItem(row);
    }
    for (int column = 0; column < list->columnCount(); ++column)
        list->resizeColumnToContents(column);
    list->setCurrentItem(list->topLevelItem(0));
    return list;
}

} // namespace

std::vector<ReplayDifference> differencesIn(const std::string& events, const std::string& script)
{
    const std::vector<std::string> commands = linesOf(script);
    std::vector<ReplayDifference> differences;
    for (const std::string& line : linesOf(events)) {
        const auto event = nlohmann::json::parse(line);
        const bool isExpectation = event["event"] == "expectation";
        if (!isExpectation && event["event"] != "inert")
            continue;
        ReplayDifference difference{.line = event["line"], .command = {}, .expected = {}, .found = {}};
        const auto at = static_cast<std::size_t>(difference.line) - 1;
        difference.command = at < commands.size() ? commands[at] : std::string();
        if (isExpectation) {
            difference.expected = event["expected"].get<std::string>();
            difference.found = event["actual"].get<std::string>();
        }
        differences.push_back(std::move(difference));
    }
    return differences;
}

ReplayReport::ReplayReport(const Texts& texts, const ReplayResult& result, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(texts(replayText::title));
    auto* column = new QVBoxLayout(this);
    auto* heading = new PlainLabel(summary(texts, result), this);
    heading->setWordWrap(true);
    column->addWidget(heading);
    if (!result.fault.empty()) {
        auto* reason = new PlainLabel(toShown(result.fault), this);
        reason->setWordWrap(true);
        column->addWidget(reason);
    }
    if (!result.differences.empty())
        column->addWidget(table(texts, result.differences, this));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    onSignal(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
    column->addWidget(buttons);
    if (!result.differences.empty())
        resize(fontMetrics().averageCharWidth() * 100, sizeHint().height());
}

} // namespace ko
