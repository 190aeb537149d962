#include "FrameTest.h"
#include "host/properties/PropertiesDialog.h"
#include "platform/DateControls.h"
#include "widgets/bindings/EntryMark.h"

#include <QAccessible>
#include <QCalendarWidget>
#include <QLayout>
#include <QTabBar>
#include <QTabWidget>
#include <map>
#include <optional>

namespace ko::test {
namespace {

const std::map<std::string_view, QAccessible::Role> roles{
    {"TextBox", QAccessible::EditableText},
    {"ComboBox", QAccessible::ComboBox},
    {"OptionButton", QAccessible::RadioButton},
    {"CommandButton", QAccessible::Button},
    {"Label", QAccessible::StaticText},
    {"Frame", QAccessible::Grouping},
    {"Gridocx", QAccessible::Table},
    {"Image", QAccessible::Graphic},
    {"PictureBox", QAccessible::Graphic},
    {"Timeline", QAccessible::Graphic},
    {"MonthView", QAccessible::Table},
    {"DTPicker", QAccessible::SpinBox},
    {"ChannelSelector", QAccessible::Grouping},
    {"SSTab", QAccessible::PageTabList},
    {"Table", QAccessible::Table},
};

/// The accessibility data of the demo's page and its dialogs.
class AccessibilityTest : public FrameTest {
protected:
    void SetUp() override
    {
        window.open(KO_DEMO_FOLDER "/engine-bench-demo.json");
        window.resize(1000, 800);
        show();
    }
    static QString accessibleText(QObject* object, QAccessible::Text kind)
    {
        return QAccessible::queryAccessibleInterface(object)->text(kind);
    }
    /// Returns the control's value; none if it has no value or exposes it in another way.
    static std::optional<std::string> valueOf(const Control& control)
    {
        if (const auto* box = dynamic_cast<const TextBox*>(&control))
            return box->text();
        if (const auto* list = dynamic_cast<const ComboBox*>(&control))
            return list->text();
        return std::nullopt;
    }
    static void checkValue(const Control& control, QAccessibleInterface& element)
    {
        const std::string value = element.text(QAccessible::Value).toStdString();
        EXPECT_EQ(valueOf(control).value_or(value), value) << control.name();
        if (const auto* option = dynamic_cast<const OptionButton*>(&control)) {
            EXPECT_EQ(element.state().checked != 0, option->value()) << control.name();
        }
        if (dynamic_cast<const TimePicker*>(&control)) {
            EXPECT_FALSE(value.empty());
        }
    }
    /// Names must not contain the mark of a mnemonic.
    static bool isName(const QString& text) { return !text.isEmpty() && !text.contains(u'&'); }
    /// The name of a list is that of the label that refers to it; its own text is its value.
    static QString nameOf(const Control& control, QAccessibleInterface& element)
    {
        if (!dynamic_cast<const ComboBox*>(&control))
            return element.text(QAccessible::Name);
        for (const auto& [other, relation] : element.relations(QAccessible::Label))
            if (relation == QAccessible::Label && other->object() != element.parent()->object())
                return other->text(QAccessible::Name);
        return qobject_cast<const QWidget*>(element.object())->accessibleName();
    }
    static void checkControl(const Control& control, QWidget& widget)
    {
        QAccessibleInterface* element = QAccessible::queryAccessibleInterface(&widget);
        ASSERT_NE(element, nullptr) << control.name();
        EXPECT_TRUE(isName(nameOf(control, *element))) << control.name();
        EXPECT_EQ(element->role(), roles.at(control.typeName())) << control.name();
        const bool hasHint = std::atoi(control.tag().c_str()) == 0;
        if (control.takesFocus() && hasHint) {
            EXPECT_EQ(element->text(QAccessible::Description).toStdString(), control.tag()) << control.name();
        }
        checkValue(control, *element);
    }
    /// Checks that everything that can be used has a name, including parts of controls.
    static void checkParts(QAccessibleInterface& element)
    {
        const bool isUsed = element.state().focusable || element.role() == QAccessible::Button ||
                            element.role() == QAccessible::ButtonMenu || element.role() == QAccessible::List;
        const QString name = element.text(QAccessible::Name);
        EXPECT_FALSE(name.contains(u'&')) << name.toStdString();
        if (isUsed && !element.state().invisible && element.role() != QAccessible::Client) {
            EXPECT_TRUE(isName(name)) << (element.object() ? element.object()->metaObject()->className() : "") << " in "
                                      << element.parent()->text(QAccessible::Name).toStdString();
        }
        for (int i = 0; i < element.childCount(); ++i)
            if (QAccessibleInterface* child = element.child(i))
                checkParts(*child);
    }
    /// Checks that every widget that takes the focus has a name.
    static void checkNames(const QWidget& top)
    {
        for (QWidget* const widget : top.findChildren<QWidget*>())
            if (widget->focusPolicy() != Qt::NoFocus && widget->isVisible() && !dynamic_cast<QTabBar*>(widget)) {
                EXPECT_TRUE(isName(accessibleText(widget, QAccessible::Name)))
                    << widget->metaObject()->className() << " " << widget->objectName().toStdString();
            }
    }
    static void checkForm(const Form& form, QWidget& shown)
    {
        for (const Control* control : form.controls())
            if (auto* widget = shown.findChild<QWidget*>(toQt(control->name())); widget && control->isShown()) {
                auto* tabs = qobject_cast<QTabWidget*>(widget);
                checkControl(*control, tabs ? *tabs->tabBar() : *widget);
            }
        checkParts(*QAccessible::queryAccessibleInterface(&shown));
    }
    /// Presses the control, checks the dialog that it opens, and closes the dialog.
    void checkDialog(PressControl& opens)
    {
        bool shown = false;
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            shown = true;
            auto* view = dynamic_cast<FormView*>(dialog->layout()->itemAt(0)->widget());
            EXPECT_EQ(accessibleText(dialog, QAccessible::Name), toQt(view->form().caption()));
            checkForm(view->form(), *view);
            if (const auto* calendar = dialog->findChild<QCalendarWidget*>()) {
                EXPECT_FALSE(accessibleText(calendar->focusProxy(), QAccessible::Name).isEmpty());
            }
            dialog->reject();
        });
        EXPECT_EQ(opens.userClicked(), Outcome::Done) << opens.name();
        EXPECT_TRUE(shown) << opens.name();
    }
};

TEST_F(AccessibilityTest, EveryControlOfThePageAndOfTheDialogsSaysItsNameRoleValueAndHint)
{
    checkForm(page(), window.page().view());
    page().optStartTime.userClicked();
    checkForm(page(), window.page().view());
    checkDialog(page().cmdStartTime);
    page().optOnTrigger.userClicked();
    checkForm(page(), window.page().view());
    checkDialog(page().cmdChannel);
    checkDialog(page().mnuTimebaseTriggerLines);
    checkDialog(page().cmdSampleRateOffers);
    checkParts(*QAccessible::queryAccessibleInterface(&window));
    const QAccessibleInterface* menu = QAccessible::queryAccessibleInterface(&window.page().menu());
    ASSERT_EQ(menu->childCount(), 1);
    EXPECT_EQ(menu->child(0)->role(), QAccessible::MenuItem);
    EXPECT_EQ(menu->child(0)->text(QAccessible::Name), window.text(1127).remove(u'&'));
}

TEST_F(AccessibilityTest, EveryPartOfTheDocksAndOfThePropertiesHasAName)
{
    for (QDockWidget* const dock : window.findChildren<QDockWidget*>()) {
        dock->show();
        dock->raise();
        checkNames(*dock);
    }
    window.instruments().select(0);
    window.instruments().findChild<QAction*>("properties")->trigger();
    auto& dialog = *window.findChild<PropertiesDialog*>();
    auto& tabs = *dialog.findChild<QTabWidget*>();
    for (int tab = 0; tab < tabs.count(); ++tab) {
        tabs.setCurrentIndex(tab);
        checkNames(dialog);
    }
}

/// Returns the texts with a mnemonic: menus, labels of fields, buttons.
QStringList altTexts(FrameWindow& window)
{
    QStringList texts;
    for (const QAction* menu : window.menuBar()->actions())
        texts << menu->text();
    for (const QLabel* label : window.findChildren<QLabel*>())
        if (label->buddy() && (label->text().contains(u'&') || !label->isHidden()))
            texts << label->text();
    for (const QAbstractButton* button : window.findChildren<QAbstractButton*>())
        if (button->text().contains(u'&'))
            texts << button->text();
    return texts;
}

std::string stringsOf(const char* language)
{
    QFile strings(QStringLiteral(KO_DEMO_FOLDER "/../strings/%1.txt").arg(language));
    EXPECT_TRUE(strings.open(QIODevice::ReadOnly));
    return strings.readAll().toStdString();
}

TEST(LanguagesTest, ALetterLeadsToOnePlaceAMenuHasNoEntryTwiceAndNothingIsCutInAnyLanguage)
{
    for (const char* language : {"en", "de", "fr", "ja"}) {
        FrameWindow window(stringsOf(language));
        window.open(KO_DEMO_FOLDER "/engine-bench-demo.json");
        QMap<QKeySequence, QString> places;
        const QStringList texts = altTexts(window);
        EXPECT_GT(texts.size(), 15);
        for (const QString& text : texts) {
            const QKeySequence key = QKeySequence::mnemonic(text);
            EXPECT_FALSE(key.isEmpty()) << language << ": " << text.toStdString();
            // The two options for a time share their text. The English texts, the menu's too, are fixed.
            const bool isGiven = text == places.value(key) || text == "&Timebase" || text == "At &Time:";
            EXPECT_TRUE(isGiven || !places.contains(key))
                << language << ": " << text.toStdString() << " and " << places[key].toStdString();
            places[key] = text;
            EXPECT_EQ(*language == 'j' && text.contains(u'&'), text.contains(QStringLiteral("(&")))
                << text.toStdString();
        }
        for (const QMenu* menu : window.findChildren<QMenu*>()) {
            QStringList entries;
            for (const QAction* entry : menu->actions())
                if (!entry->isSeparator())
                    entries << withoutMnemonic(entry->text());
            EXPECT_EQ(entries.removeDuplicates(), 0) << language << ": " << menu->title().toStdString();
        }
        window.show();
        Page& page = window.document().page();
        auto& box = static_cast<QLineEdit&>(*window.page().view().widget(page.txtDuration));
        ASSERT_TRUE(page.moveFocus(&page.txtDuration));
        QTest::keyClicks(&box, "0.25x");
        const auto* mark = dynamic_cast<EntryMark*>(box.children().constLast());
        ASSERT_NE(mark, nullptr) << language;
        EXPECT_GE(mark->width(),
                  mark->fontMetrics().height() + mark->fontMetrics().horizontalAdvance(mark->accessibleName()));
        EXPECT_GE(window.page().height(), window.page().view().minimumSizeHint().height()) << "nothing is scrolled";
    }
}

} // namespace
} // namespace ko::test
