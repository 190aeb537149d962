#include "DialogTest.h"
#include "fakes/FakeDriver.h"
#include "platform/CaptionControls.h"
#include "widgets/bindings/ChannelBrowser.h"
#include "widgets/dialogs/DateDialog.h"
#include "widgets/dialogs/TriggerDialogs.h"

#include <QCalendarWidget>
#include <QLabel>
#include <QScreen>
#include <QTabWidget>
#include <QVBoxLayout>

namespace ko::test {
namespace {

/// The dialogs of triggers and dates.
class ViewsTest : public DialogsTest {
protected:
    SelectChannel channels{support};
    AdvancedTrig lines{support};
    SetDateTime dates{support};

    ViewsTest()
    {
        addTriggerDialogs(modalForms, channels, lines, texts());
        addDateDialog(modalForms, dates, texts());
    }
};

TEST_F(ViewsTest, AChannelIsChosenByKeys)
{
    auto driver = std::make_shared<FakeDriver>();
    driver->groups = {{"Inputs",
                       {{.address = "0:1", .name = "Crank of an engine with a name of several words"},
                        {.address = "0:2", .name = "Cam"}}}};
    channels.UpdateDrivers({driver}, 1);
    std::shared_ptr<Driver> chosen;
    std::int32_t slot = -1, channel = -1;
    const auto show = [&] { channels.Display(chosen, slot, channel); };
    inDialog(show, [&] {
        EXPECT_TRUE(dynamic_cast<ChannelBrowser&>(part<QWidget>("chsNavigate")).tree->hasFocus());
        expectLook(dialog(), "channels");
        key(Qt::Key_Down);
        key(Qt::Key_Down);
        key(Qt::Key_Return);
    });
    EXPECT_EQ(slot, 0);
    EXPECT_EQ(channel, 0);
    inDialog(show, [&] {
        key(Qt::Key_Down);
        part<QWidget>("cmdCancel").setFocus();
        key(Qt::Key_Return);
    });
    EXPECT_EQ(channel, 0) << "Enter presses the focused button";
}

TEST_F(ViewsTest, TriggerLinesLookAsKept)
{
    const auto show = [&] { lines.Display(LinePlan({{true, true}, {true}}, {0, -1}), {.hasMaster = {true, true}}); };
    inDialog(show, [&] {
        part<QTabWidget>("tabTrigger").setCurrentIndex(1);
        expectLook(dialog(), "trigger lines");
        EXPECT_EQ(lines.bounds().width, toTwips(dialog(), part<QWidget>("AdvancedTrig").width()));
        click("btnCancel");
    });
}

TEST_F(ViewsTest, TheCalendarAndTheTimeTakeOnlyWhatIsMeantForThem)
{
    inDialog([&] { dates.Display(DateTime{46347.5}, false, false); },
             [&] {
                 expectLook(dialog(), "date");
                 auto& calendar = part<QCalendarWidget>("calDate");
                 dates.optSpecifiedDay.userClicked();
                 QTest::keyClick(calendar.focusProxy(), Qt::Key_5);
                 EXPECT_TRUE(calendar.findChildren<QLabel*>().isEmpty()) << "no box of the toolkit";
                 QTest::mouseClick(&part<QWidget>("qt_calendar_nextmonth"), Qt::LeftButton);
                 const QDate date = calendar.selectedDate();
                 auto& year = part<QWidget>("qt_calendar_yearedit");
                 year.show();
                 year.setFocus();
                 key(Qt::Key_Return);
                 EXPECT_TRUE(dialog().isVisible()) << "Enter ends the typing of a year";
                 QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
                 QApplication::sendEvent(&part<QWidget>("dtpTimeSelector"), &wheel);
                 EXPECT_EQ(dates.dtpTimeSelector.hour(), 12) << "the wheel turns only the time with the focus";
                 EXPECT_FALSE(wheel.isAccepted());
                 part<QWidget>("dtpTimeSelector").setFocus();
                 QApplication::sendEvent(&part<QWidget>("dtpTimeSelector"), &wheel);
                 EXPECT_EQ(dates.dtpTimeSelector.hour(), 13);
                 EXPECT_EQ(calendar.selectedDate(), date);
                 EXPECT_EQ(calendar.minimumDate(), QDate(1899, 12, 31));
                 click("btnCancel");
             });
}

/// A form of two buttons, whose view is as large as the test wants.
class ModalFormsTest : public DialogsTest {
protected:
    Form form{"Asking"};
    CommandButton ok{form, "cmdOK"};
    CommandButton cancel{form, "cmdCancel"};
    QSize room{200, 100};
    QSize hint;
    int oks = 0, cancels = 0, built = 0;

    void SetUp() override
    {
        form.setButtons(ok, cancel);
        const auto counts = [this](int& clicks) {
            return [this, &clicks] {
                ++clicks;
                modalForms.hide(form);
            };
        };
        ok.click = counts(oks);
        cancel.click = counts(cancels);
        modalForms.add(form, [this] {
            ++built;
            auto* view = new FormView(form, [](int) { return QString(); });
            auto* layout = new QVBoxLayout(view);
            layout->addWidget(&view->button(ok));
            layout->addWidget(&view->button(cancel));
            layout->addSpacerItem(new QSpacerItem(room.width(), room.height()));
            hint = view->sizeHint();
            return view;
        });
    }
    void show() { modalForms.showModal(form); }
};

TEST_F(ModalFormsTest, EnterEscapeAndTheCloseButtonPressTheFormsButtons)
{
    const std::function<void()> ways[] = {
        [] { key(Qt::Key_Return); }, [] { QTest::keyClick(&part<QWidget>("cmdCancel"), Qt::Key_Return); },
        [] { dialog().accept(); },   [] { key(Qt::Key_Escape); },
        [] { dialog().close(); },    [] { dialog().reject(); }};
    for (const auto& way : ways)
        inDialog([&] { show(); }, way);
    EXPECT_EQ(oks, 3);
    EXPECT_EQ(cancels, 3);
    inDialog([&] { show(); },
             [&] {
                 EXPECT_THROW(show(), Failure) << "it is shown already";
                 modalForms.hide(form);
             });
    Form other("Other");
    EXPECT_THROW(modalForms.showModal(other), Failure) << "it has no view";
}

TEST_F(ModalFormsTest, IsMeasuredOnceAndOpensWhereTheFormIsButWithinTheScreen)
{
    form.measure();
    form.measure();
    EXPECT_EQ(built, 1);
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QWidget owner;
    owner.show();
    EXPECT_EQ(form.bounds(), (Bounds{0, 0, toTwips(owner, hint.width()), toTwips(owner, hint.height())}));
    modalForms.setOwner(&owner);
    const auto move = [&](QPoint to) { form.move(toTwips(owner, to.x()), toTwips(owner, to.y())); };
    move({60, 40});
    inDialog([&] { show(); },
             [&] {
                 EXPECT_EQ(dialog().parentWidget(), &owner);
                 EXPECT_NEAR((dialog().pos() - QPoint(60, 40)).manhattanLength(), 0, 2);
                 move(screen.bottomRight());
                 const QSize frame = owner.frameGeometry().size() - owner.size();
                 const QPoint corner(dialog().width() + frame.width(), dialog().height() + frame.height());
                 EXPECT_EQ(dialog().pos() + corner, screen.bottomRight() + QPoint(1, 1));
                 move({-50, -50});
                 EXPECT_EQ(dialog().pos(), screen.topLeft());
                 dialog().move(70, 80);
                 form.setCaption("Other");
                 EXPECT_EQ(dialog().windowTitle(), "Other");
                 EXPECT_EQ(dialog().pos(), QPoint(70, 80)) << "where the user has put it";
                 modalForms.hide(form);
             });
    room = screen.size() * 2;
    inDialog([&] { show(); },
             [&] {
                 EXPECT_GE(dialog().width(), screen.width() * 9 / 10);
                 EXPECT_EQ(dialog().pos(), screen.topLeft()) << "the title is in sight";
                 modalForms.hide(form);
             });
}

TEST_F(ModalFormsTest, ListenersHearOfOpeningActionsAndClosingAndAStandInAnswersForTheUser)
{
    QStringList heard;
    modalForms.opened = [&](const Form& opened) { heard << "opened " + toQt(opened.name()); };
    modalForms.closed = [&] { heard << "closed"; };
    modalForms.actionDone = [&] { heard << "done"; };
    inDialog([&] { show(); }, [] { click("cmdCancel"); });
    heard.removeDuplicates();
    EXPECT_EQ(heard, (QStringList{"opened Asking", "done", "closed"}));
    modalForms.standIn = &host;
    QPointer<QWidget> shown;
    host.inModalForm = [&](Form& asked) {
        shown = QApplication::activeModalWidget();
        EXPECT_TRUE(&asked == &form && shown && shown->isVisible());
        cancel.userClicked();
        EXPECT_FALSE(shown && shown->isVisible());
    };
    show();
    EXPECT_EQ(host.hiddenForm, &form);
    host.inModalForm = [&](Form&) {
        shown = QApplication::activeModalWidget();
        throw 1;
    };
    show();
    EXPECT_TRUE(shown.isNull()) << "closed whatever happens";
}

} // namespace
} // namespace ko::test
