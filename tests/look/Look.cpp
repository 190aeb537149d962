#include "look/Look.h"

#include "look/Painted.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QFontInfo>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMetaProperty>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QTreeView>
#include <algorithm>
#include <gtest/gtest.h>
#include <map>

namespace ko::test {

namespace {

QString sizes(const QWidget& widget)
{
    const QSize wanted = widget.sizeHint(), least = widget.minimumSizeHint();
    return QStringLiteral("%1x%2 %3x%4")
        .arg(wanted.width())
        .arg(wanted.height())
        .arg(least.width())
        .arg(least.height());
}

/// Of a control array, only the first member.
bool hasLine(const QWidget& widget)
{
    const QString name = widget.objectName();
    return !name.isEmpty() && !name.startsWith("qt_") && (!name.contains('(') || name.endsWith("(0)"));
}

/// Not of a dock behind others, which is placed beyond the left edge.
template <class Visit> void eachPart(const QWidget& widget, const Visit& visit)
{
    for (QObject* child : widget.children())
        if (auto* part = qobject_cast<QWidget*>(child);
            part && part->isVisible() && !part->isWindow() && part->geometry().right() >= 0)
            visit(*part);
}

/// What the Tab key leads to.
QString afterTab(const QWidget& widget)
{
    const QWidget* next = widget.nextInFocusChain();
    while (next != &widget && !(next->isVisible() && (next->focusPolicy() & Qt::TabFocus)))
        next = next->nextInFocusChain();
    return QString::fromLatin1(next->metaObject()->className()) + next->objectName() + next->accessibleName();
}

/// Notes all that can be set in a widget or an action and does not depend on where the window and the focus are.
void noteProperties(const QObject& object, QStringList& notes)
{
    static const QSet<QByteArray> left{"focus", "html", "isActiveWindow", "markdown", "pos", "source", "x", "y"};
    const QMetaObject& type = *object.metaObject();
    for (int i = 0; i < type.propertyCount(); ++i) {
        const QMetaProperty property = type.property(i);
        const QVariant value = property.read(&object);
        if (left.contains(property.name()))
            continue;
        if (value.userType() == QMetaType::QCursor)
            notes << QString::number(value.value<QCursor>().shape());
        else
            notes << (property.isEnumType() ? QString::number(value.toInt()) : value.toString());
    }
}

/// Notes the actions with those of their menus, as they are when the menus open.
void noteActions(const QList<QAction*>& actions, QStringList& notes)
{
    for (const QAction* const action : actions) {
        if (action->menu())
            Q_EMIT action->menu()->aboutToShow();
        noteProperties(*action, notes);
        notes << QKeySequence::listToString(action->shortcuts()) << QString::number(action->isSeparator());
        if (action->menu())
            noteActions(action->menu()->actions(), notes);
        if (action->menu())
            Q_EMIT action->menu()->aboutToHide();
    }
}

/// Notes what the items of a view say but do not paint.
void noteItems(const QAbstractItemView& view, const QModelIndex& parent, QStringList& notes)
{
    const QAbstractItemModel& model = *view.model();
    static const QRegularExpression timeOfCall(R"(\d\d:\d\d:\d\d\.\d\d\d)");
    const auto* const tree = qobject_cast<const QTreeView*>(&view);
    for (int row = 0; row < model.rowCount(parent); ++row)
        for (int column = 0; column < model.columnCount(parent); ++column) {
            const QModelIndex index = model.index(row, column, parent);
            if (tree && tree->isColumnHidden(column))
                continue;
            for (const int role : {Qt::ToolTipRole, Qt::StatusTipRole, Qt::AccessibleTextRole, Qt::CheckStateRole})
                notes << index.data(role).toString().remove(timeOfCall);
            notes << QString::number(index.flags());
            noteItems(view, index, notes);
        }
}

/// Notes what the widget paints and says, and each visible part of it that has no line.
void note(QWidget& widget, QPoint at, NotingDevice& device)
{
    const QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(&widget);
    noteProperties(widget, device.notes.notes);
    device.notes.notes << afterTab(widget)
                       << QString::number(widget.autoFillBackground() ? widget.backgroundRole() : -1) << sizes(widget)
                       << QString::number(spoken.role()) << (spoken.state().readOnly ? "read-only" : "");
    for (const auto& label : spoken.relations(QAccessible::Label))
        device.notes.notes << "labelled " + label.first->text(QAccessible::Name);
    if (const auto* list = qobject_cast<const QComboBox*>(&widget))
        for (int i = 0; i < list->count(); ++i)
            device.notes.notes << list->itemText(i);
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget); view && view->model())
        noteItems(*view, {}, device.notes.notes);
    noteActions(widget.actions(), device.notes.notes);
    widget.render(&device, at, {}, {});
    eachPart(widget, [&](QWidget& part) {
        if (!hasLine(part))
            note(part, at + part.pos(), device);
    });
}

template <class Visit> void visit(QWidget& widget, const Visit& function)
{
    function(widget);
    eachPart(widget, [&](QWidget& part) { visit(part, function); });
}

/// The lines of the kept file by their sections.
std::map<QString, QStringList> kept()
{
    QFile file(QStringLiteral(KO_LOOK_FILE));
    std::map<QString, QStringList> sections;
    QString section;
    const bool isThere = file.open(QIODevice::ReadOnly);
    for (const QString& line :
         QString::fromUtf8(isThere ? file.readAll() : QByteArray()).split('\n', Qt::SkipEmptyParts))
        if (line.startsWith('['))
            section = line.mid(1, line.size() - 2);
        else
            sections[section] << line;
    return sections;
}

void keep(const std::map<QString, QStringList>& sections)
{
    QFile file(QStringLiteral(KO_LOOK_FILE));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    for (const auto& [section, lines] : sections)
        file.write(QStringLiteral("[%1]\n%2\n").arg(section, lines.join('\n')).toUtf8());
}

} // namespace

void fixEnvironment()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LC_ALL", "C.UTF-8");
    for (const char* const look : {"QT_FONT_DPI", "QT_SCALE_FACTOR", "QT_STYLE_OVERRIDE"})
        qunsetenv(look);
    QLocale::setDefault(QLocale::c());
}

void fixLook()
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSizeF(9.0); // 12 pixels
    font.setHintingPreference(QFont::PreferNoHinting);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setFont(font);
    QApplication::setCursorFlashTime(0);
}

void Look::add(const QString& name, const QRect& place, const QStringList& painted)
{
    auto part = std::find_if(parts_.begin(), parts_.end(), [&](const Part& one) { return one.name == name; });
    if (part == parts_.end())
        part = parts_.insert(part, {name, name + QStringLiteral(" | -").repeated(states_), {}});
    part->painted = painted;
    part->line += QStringLiteral(" | %1,%2 %3x%4 %5")
                      .arg(place.x())
                      .arg(place.y())
                      .arg(place.width())
                      .arg(place.height())
                      .arg(qChecksum(painted.join('\n').toUtf8()), 4, 16, QLatin1Char('0'));
}

void Look::take(QWidget& window)
{
    for (int i = 0; i < 3; ++i)
        QApplication::processEvents();
    // The plan is announced a moment after it has changed.
    const auto* const plan = window.findChild<QLabel*>("lblPlan");
    EXPECT_TRUE(QTest::qWaitFor([plan] { return !plan || plan->accessibleName() == plan->text(); }));
    visit(window, [&](QWidget& widget) {
        if (!hasLine(widget))
            return;
        NotingDevice device(window.size(), window.logicalDpiX());
        note(widget, {}, device);
        add(widget.objectName(), {widget.mapTo(&window, QPoint()), widget.size()}, device.notes.notes);
    });
    ++states_;
    for (Part& part : parts_)
        if (part.line.count('|') < states_)
            part.line += QStringLiteral(" | -");
}

void Look::compare(const QString& section) const
{
    ASSERT_EQ(QFontInfo(QApplication::font()).family(), "DejaVu Sans") << "its package is not installed";
    std::map<QString, QStringList> sections = kept();
    QStringList lines;
    for (const Part& part : parts_)
        lines << part.line;
    if (qEnvironmentVariableIsSet("KO_UPDATE_LOOK")) {
        sections[section] = lines;
        return keep(sections);
    }
    for (const QString& line : sections[section])
        EXPECT_TRUE(lines.contains(line)) << "was " << line.toStdString();
    for (const Part& part : parts_)
        EXPECT_TRUE(sections[section].contains(part.line)) << "now " << part.line.toStdString() << '\n'
                                                           << part.painted.mid(0, 30).join('\n').toStdString();
}

void expectLook(QWidget& window, const QString& section)
{
    if (window.objectName().isEmpty())
        window.setObjectName(section);
    Look look;
    for (const QSize size : {window.size(), window.size() + QSize(150, 100), QSize(10, 10)}) {
        window.resize(size);
        look.take(window);
    }
    look.compare(section);
}

} // namespace ko::test
