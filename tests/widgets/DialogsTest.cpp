#include "Soon.h"
#include "fakes/FakeDriver.h"
#include "fakes/FakePlatform.h"
#include "platform/CaptionControls.h"
#include "widgets/bindings/ChannelBrowser.h"
#include "widgets/bindings/FormView.h"
#include "widgets/dialogs/OffersDialog.h"
#include "widgets/dialogs/TriggerDialogs.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace ko::test {
namespace {

/// The component's dialogs as a user sees them.
class DialogsTest : public testing::Test {
protected:
    FakePlatform host;
    QtModalForms modalForms;
    Platform platform{host, host, host, host, host, modalForms, {}, host.platform.createErrorReporter, {}};
    Support support{platform, {}};

    void TearDown() override { EXPECT_EQ(host.reports, std::vector<std::string>()); }

    static ko::Texts texts()
    {
        return [](int number) { return QStringLiteral("text %1").arg(number); };
    }
    static QDialog& dialog() { return dynamic_cast<QDialog&>(*QApplication::activeModalWidget()); }
    template <class W> static W& part(const char* name)
    {
        return dynamic_cast<W&>(*dialog().findChild<QWidget*>(QString::fromLatin1(name)));
    }
    static QRect place(const char* name)
    {
        const auto& it = part<QWidget>(name);
        return {it.mapTo(&dialog(), QPoint()), it.size()};
    }
    static void settle()
    {
        for (int i = 0; i < 3; ++i)
            QApplication::processEvents();
    }
    static void key(Qt::Key key, Qt::KeyboardModifiers held = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, held);
    }
    /// Runs `user` in the dialog that `show` shows.
    template <class Show, class User> void inDialog(Show show, User user)
    {
        bool ran = false;
        const Soon soon([&] {
            ASSERT_NE(QApplication::activeModalWidget(), nullptr);
            const QPointer<QDialog> shown = &dialog();
            EXPECT_TRUE(QTest::qWaitForWindowActive(shown));
            user();
            ran = true;
            if (shown && shown->isVisible()) {
                ADD_FAILURE() << "the dialog is still open";
                shown->done(0);
            }
        });
        show();
        EXPECT_TRUE(ran);
    }
};

class OffersTest : public DialogsTest {
protected:
    ShowOffers form{support};
    ShowOffers::Content content;
    std::vector<ShowOffers::Settable> settable{{"Rate", "1000"}, {"Block", "64"}};
    std::vector<std::pair<std::size_t, std::string>> set;

    OffersTest()
    {
        addOffersDialog(modalForms, form, texts());
        content.common = "All share <b>one</b>";
        content.columns = {"Rate", "A header of two words", "Why", "Says", "More"};
        content.row = 1;
        const auto row = [](const char* name, const char* value) {
            Table::Row made{name, {}};
            for (const char* text :
                 {value, "2", "A sentence of several words, one after the other, so that there are three lines", "b",
                  "c"})
                made.cells.push_back({text, "", Table::Emphasis::none});
            return made;
        };
        content.rows = {row("First", "1000000000000000000000"), row("Second", "5")};
    }
    template <class User> void ask(User user)
    {
        inDialog(
            [this] {
                form.Display("Title",
                             {[this] { return content; }, [this] { return settable; },
                              [this](std::size_t which, const std::string& value) { set.emplace_back(which, value); }},
                             1);
            },
            [&] {
                settle();
                user();
                QTest::mouseClick(&part<QPushButton>("btnClose"), Qt::LeftButton);
            });
    }
};

TEST_F(OffersTest, TheTableIsBelowTheSentenceAndAboveTheRowThatSets)
{
    ask([&] {
        EXPECT_EQ(dialog().windowTitle(), "Title");
        EXPECT_EQ(part<QLabel>("lblCommon").text(), "All share <b>one</b>");
        EXPECT_EQ(part<QLabel>("lblCommon").textFormat(), Qt::PlainText);
        EXPECT_TRUE(part<QLabel>("lblCommon").wordWrap());
        EXPECT_GT(place("tblOffers").top(), place("lblCommon").bottom());
        EXPECT_GT(place("cmbQuantity").top(), place("tblOffers").bottom());
        int left = 0;
        for (const char* name : {"cmbQuantity", "txtValue", "cmdSetAll", "btnClose"}) {
            EXPECT_GT(place(name).left(), left) << name;
            left = place(name).right();
            EXPECT_NEAR(place(name).center().y(), place("cmbQuantity").center().y(), 3) << name;
        }
        EXPECT_EQ(place("btnClose").right(), place("tblOffers").right());
        EXPECT_LT(place("cmdSetAll").right(), place("btnClose").left() - 50) << "closing is apart";
        for (const char* named : {"tblOffers", "cmbQuantity", "txtValue"})
            EXPECT_TRUE(part<QWidget>(named).accessibleName().startsWith("text ")) << named;
        EXPECT_FALSE(part<QPushButton>("cmdSetAll").toolTip().isEmpty());
        const QWidget& view = part<QWidget>("ShowOffers");
        EXPECT_GE(view.sizeHint().width(), dialog().fontMetrics().averageCharWidth() * 135);
        EXPECT_EQ(form.bounds().width, toTwips(view, view.width()));
        const int table = place("tblOffers").height();
        dialog().resize(dialog().size() + QSize(0, 100));
        settle();
        EXPECT_GE(place("tblOffers").height(), table + 90);
    });
}

TEST_F(OffersTest, ColumnsOfValuesHaveRoomForThemAndThoseOfSentencesShareTheRestAndWrap)
{
    ask([&] {
        const auto& table = part<QTableWidget>("tblOffers");
        QFont bold = table.font();
        bold.setBold(true);
        const QFontMetrics metrics(bold);
        dialog().resize(1200, dialog().height());
        settle();
        EXPECT_GT(table.columnWidth(0), metrics.horizontalAdvance("1000000000000000000000"));
        EXPECT_LT(table.columnWidth(1), metrics.horizontalAdvance("A header of two words"));
        EXPECT_GT(table.columnWidth(1), metrics.horizontalAdvance("header"));
        for (const int column : {3, 4})
            EXPECT_EQ(table.columnWidth(column), table.columnWidth(2));
        EXPECT_NEAR(table.horizontalHeader()->length(), table.viewport()->width(), 3) << "no more, no less";
        EXPECT_GE(table.horizontalHeader()->height(), 2 * metrics.lineSpacing());
        QStyleOptionViewItem option;
        struct Shown : QStyledItemDelegate {
            using QStyledItemDelegate::initStyleOption;
        };
        (static_cast<QStyledItemDelegate*>(table.itemDelegate())->*(&Shown::initStyleOption))(
            &option, table.model()->index(0, 2));
        EXPECT_TRUE((option.displayAlignment & Qt::AlignLeft) != 0);
        EXPECT_EQ(table.currentRow(), 1);
        dialog().resize(500, dialog().height());
        settle();
        const int lines = table.rowHeight(0);
        EXPECT_EQ(table.columnWidth(2), metrics.averageCharWidth() * 24) << "never too narrow to read";
        EXPECT_GE(lines, 3 * metrics.lineSpacing()) << "the sentence is wrapped";
        dialog().resize(2000, dialog().height());
        settle();
        EXPECT_LT(table.rowHeight(0), lines);
        content.rows[1].cells[0].text = "much longer than before, in one cell";
        form.tblOffers.setContent(content.columns, content.rows);
        settle();
        EXPECT_GT(table.columnWidth(0), metrics.horizontalAdvance("much longer than before, in one cell"));
    });
}

TEST_F(OffersTest, AQuantityIsSetByItsButtonAndByEnterInItsBox)
{
    ask([&] {
        EXPECT_EQ(part<QComboBox>("cmbQuantity").currentText(), "Block");
        auto& value = part<QLineEdit>("txtValue");
        EXPECT_EQ(value.text(), "64");
        EXPECT_TRUE((value.alignment() & Qt::AlignRight) != 0);
        QTest::mouseClick(&value, Qt::LeftButton);
        EXPECT_EQ(value.selectedText(), "64");
        QTest::keyClicks(&value, "128");
        QTest::keyClick(&value, Qt::Key_Return);
        QTest::mouseClick(&value, Qt::LeftButton);
        QTest::keyClick(&value, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&value, "256");
        QTest::keyClick(&value, Qt::Key_Enter);
        QTest::mouseClick(&part<QPushButton>("cmdSetAll"), Qt::LeftButton);
        EXPECT_EQ(set, (std::vector<std::pair<std::size_t, std::string>>{{1, "128"}, {1, "256"}, {1, "64"}}));
        EXPECT_EQ(value.text(), "64") << "what the drivers hold is shown again";
        EXPECT_TRUE(dialog().isVisible());
    });
    settable.clear();
    ask([&] {
        for (const char* name : {"cmbQuantity", "txtValue", "cmdSetAll"})
            EXPECT_FALSE(part<QWidget>(name).isEnabled()) << name;
    });
}

class TriggerViewsTest : public DialogsTest {
protected:
    SelectChannel channels{support};
    AdvancedTrig lines{support};

    TriggerViewsTest() { addTriggerDialogs(modalForms, channels, lines, texts()); }
};

TEST_F(TriggerViewsTest, TheChannelsFillTheDialogAboveItsButtonsAtAnySize)
{
    auto driver = std::make_shared<FakeDriver>();
    driver->groups = {{"Inputs", {{.address = "0:1", .name = "Crank"}, {.address = "0:2", .name = "Cam"}}}};
    channels.UpdateDrivers({driver}, 1);
    std::shared_ptr<Driver> chosen;
    std::int32_t slot = -1, channel = -1;
    const auto show = [&] { channels.Display(chosen, slot, channel); };
    inDialog(show, [&] {
        EXPECT_TRUE(dynamic_cast<ChannelBrowser&>(part<QWidget>("chsNavigate")).tree->hasFocus());
        for (const QSize size : {dialog().size(), QSize(700, 400), QSize(10, 10)}) {
            dialog().resize(size);
            settle();
            const QRect browser = place("chsNavigate"), ok = place("cmdOK"), cancel = place("cmdCancel"),
                        help = place("cmdHelp");
            const int margin = browser.left();
            EXPECT_GT(margin, 0);
            EXPECT_NEAR(dialog().width() - browser.right() - 1, margin, 2);
            EXPECT_NEAR(browser.right(), help.right(), 1);
            EXPECT_NEAR(help.top() - browser.bottom(), margin, 2);
            EXPECT_NEAR(dialog().height() - help.bottom(), margin, 2);
            EXPECT_LT(ok.right(), cancel.left());
            EXPECT_LT(cancel.right(), help.left());
            EXPECT_GE(ok.left(), margin - 2);
            EXPECT_GT(browser.height(), ok.height() * 3);
            EXPECT_GE(ok.width(), part<QPushButton>("cmdOK").sizeHint().width() - 1) << "room for its text";
        }
        key(Qt::Key_Down);
        key(Qt::Key_Down);
        key(Qt::Key_Return);
    });
    EXPECT_EQ(slot, 0);
    EXPECT_EQ(channel, 0);
    inDialog(show, [&] {
        auto& cancel = part<QPushButton>("cmdCancel");
        key(Qt::Key_Down);
        cancel.setFocus();
        key(Qt::Key_Return);
    });
    EXPECT_EQ(channel, 0) << "Enter presses the focused button";
}

TEST_F(TriggerViewsTest, EachTabHasItsLinesBesideTheTableOfDrivers)
{
    inDialog(
        [&] {
            lines.Display(LinePlan({{true, true}, {true}}, {0, -1}), {.hasMaster = {true, true}});
        },
        [&] {
            auto& tabs = part<QTabWidget>("tabTrigger");
            const std::pair<const char*, const char*> kinds[] = {{"Start", "optStartTrig(%1)"},
                                                                 {"Scan", "optScanTrig(%1)"}};
            for (int tab = 0; tab < 2; ++tab) {
                tabs.setCurrentIndex(tab);
                settle();
                const auto& [kind, option] = kinds[tab];
                SCOPED_TRACE(kind);
                const auto name = [&](const char* pattern) {
                    return QString::fromLatin1(pattern).arg(QString::fromLatin1(kind)).toStdString();
                };
                int above = 0;
                for (int line = 0; line < 8; ++line) {
                    const std::string one = QString::fromLatin1(option).arg(line).toStdString();
                    EXPECT_GT(place(one.c_str()).top(), above);
                    above = place(one.c_str()).top();
                    EXPECT_LT(place(one.c_str()).right(), place(name("tbl%1Map").c_str()).left());
                }
                EXPECT_LT(place(name("lbl%1Map").c_str()).bottom(), place(name("tbl%1Map").c_str()).top());
                EXPECT_EQ(part<QTableWidget>(name("tbl%1Map").c_str()).accessibleName(),
                          withoutMnemonic(part<QLabel>(name("lbl%1Map").c_str()).text()));
                EXPECT_TRUE(part<QLabel>(name("lblNo%1Line").c_str()).wordWrap());
                EXPECT_TRUE(part<QGroupBox>(name("frm%1Trig").c_str()).isFlat());
                const int table = place(name("tbl%1Map").c_str()).width();
                dialog().resize(dialog().width() + 100, dialog().height());
                settle();
                EXPECT_GE(place(name("tbl%1Map").c_str()).width(), table + 90) << "the table takes the room";
            }
            const QWidget& view = part<QWidget>("AdvancedTrig");
            EXPECT_EQ(lines.bounds().width, toTwips(view, view.width()));
            EXPECT_LT(place("btnOK").right(), place("btnCancel").left());
            EXPECT_LT(place("btnCancel").right(), place("btnHelp").left());
            EXPECT_GT(place("btnOK").left(), dialog().width() / 3);
            EXPECT_GT(place("btnOK").top(), place("tabTrigger").bottom());
            QTest::mouseClick(&part<QPushButton>("btnCancel"), Qt::LeftButton);
        });
}

/// A form of one button, whose view is as large as the test wants.
class ModalFormsTest : public DialogsTest {
protected:
    Form form{"Asking"};
    CommandButton ok{form, "cmdOK"};
    CommandButton cancel{form, "cmdCancel"};
    QSize size{200, 100};
    QSize hint;
    int oks = 0, cancels = 0, built = 0;

    void SetUp() override
    {
        form.setButtons(ok, cancel);
        ok.click = [this] {
            ++oks;
            modalForms.hide(form);
        };
        cancel.click = [this] {
            ++cancels;
            modalForms.hide(form);
        };
        modalForms.add(form, [this] {
            ++built;
            auto* view = new FormView(form, [](int) { return QString(); });
            auto* layout = new QVBoxLayout(view);
            layout->addWidget(&view->button(ok));
            layout->addWidget(&view->button(cancel));
            layout->addSpacerItem(new QSpacerItem(size.width(), size.height()));
            hint = view->sizeHint();
            return view;
        });
    }
};

TEST_F(ModalFormsTest, EnterEscapeAndTheCloseButtonPressTheFormsButtons)
{
    const auto show = [&] { modalForms.showModal(form); };
    inDialog(show, [&] {
        EXPECT_TRUE(part<QPushButton>("cmdOK").isDefault());
        QTest::keyClick(&dialog(), Qt::Key_Return);
    });
    EXPECT_EQ(oks, 1);
    inDialog(show, [&] { QTest::keyClick(&dialog(), Qt::Key_Escape); });
    inDialog(show, [&] { dialog().close(); });
    inDialog(show, [&] { dialog().reject(); });
    EXPECT_EQ(cancels, 3);
    inDialog(show, [&] { dialog().accept(); });
    EXPECT_EQ(oks, 2);
    inDialog(show, [&] {
        EXPECT_THROW(modalForms.showModal(form), Failure) << "it is shown already";
        modalForms.hide(form);
    });
}

TEST_F(ModalFormsTest, IsMeasuredOnceAndOpensWhereTheFormIsButWithinTheScreen)
{
    form.measure();
    form.measure();
    EXPECT_EQ(built, 1);
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QWidget owner;
    owner.show();
    EXPECT_EQ(form.bounds().width, toTwips(owner, hint.width()));
    EXPECT_EQ(form.bounds().height, toTwips(owner, hint.height()));
    modalForms.setOwner(&owner);
    const auto move = [&](QPoint to) { form.move(toTwips(owner, to.x()), toTwips(owner, to.y())); };
    move({60, 40});
    inDialog([&] { modalForms.showModal(form); },
             [&] {
                 EXPECT_EQ(dialog().parentWidget(), &owner);
                 EXPECT_NEAR((dialog().pos() - QPoint(60, 40)).manhattanLength(), 0, 2);
                 move(screen.bottomRight());
                 const QSize frame = owner.frameGeometry().size() - owner.size();
                 EXPECT_EQ(dialog().x() + dialog().width() + frame.width(), screen.right() + 1);
                 EXPECT_EQ(dialog().y() + dialog().height() + frame.height(), screen.bottom() + 1);
                 move({-50, -50});
                 EXPECT_EQ(dialog().pos(), screen.topLeft());
                 dialog().move(70, 80);
                 form.setCaption("Other");
                 EXPECT_EQ(dialog().pos(), QPoint(70, 80)) << "where the user has put it";
                 modalForms.hide(form);
             });
    size = screen.size() * 2;
    inDialog([&] { modalForms.showModal(form); },
             [&] {
                 EXPECT_GE(dialog().width(), screen.width() * 9 / 10);
                 EXPECT_EQ(dialog().pos(), screen.topLeft()) << "the title is in sight";
                 modalForms.hide(form);
             });
}

TEST_F(ModalFormsTest, ListenersHearOfOpeningActionsAndClosingAndAStandInAnswersForTheUser)
{
    std::vector<std::string> heard;
    modalForms.opened = [&](const Form& opened) { heard.push_back("opened " + opened.name()); };
    modalForms.closed = [&] { heard.emplace_back("closed"); };
    modalForms.actionDone = [&] { heard.emplace_back("done"); };
    inDialog([&] { modalForms.showModal(form); },
             [&] { QTest::mouseClick(&part<QPushButton>("cmdCancel"), Qt::LeftButton); });
    EXPECT_EQ(heard.front(), "opened Asking");
    EXPECT_EQ(heard.at(1), "done");
    EXPECT_EQ(heard.back(), "closed");
    modalForms.standIn = &host;
    QPointer<QWidget> shown;
    host.inModalForm = [&](Form& asked) {
        EXPECT_EQ(&asked, &form);
        shown = QApplication::activeModalWidget();
        EXPECT_TRUE(shown && shown->isVisible());
        cancel.userClicked();
        EXPECT_FALSE(shown && shown->isVisible());
    };
    modalForms.showModal(form);
    EXPECT_EQ(host.hiddenForm, &form);
    host.inModalForm = [&](Form&) {
        shown = QApplication::activeModalWidget();
        throw 1;
    };
    modalForms.showModal(form);
    EXPECT_TRUE(shown.isNull()) << "closed whatever happens";
    modalForms.showModal(form);
}

} // namespace
} // namespace ko::test
