#include "FrameTest.h"
#include "host/toolkit/GuardedApplication.h"
#include "host/toolkit/Later.h"

#include <QAbstractItemModel>
#include <QVBoxLayout>
#ifdef KO_ADDRESS_SANITIZER
#include <sanitizer/lsan_interface.h>
#endif

namespace ko::test {
namespace {

/// Qt does not free what its functions hold when an exception passes through them.
struct IgnoredLeaks {
#ifdef KO_ADDRESS_SANITIZER
    __lsan::ScopedDisabler disabler;
#endif
};

[[noreturn]] void getStuck()
{
    throw std::runtime_error("stuck <b>");
}

/// Questions that all throw.
class StuckQuestions : public UserQuestions {
public:
    Unsaved keepChanges() override { getStuck(); }
    std::string fileToOpen() override { getStuck(); }
    std::string fileForSheet() override { getStuck(); }
    bool forget(const std::string&) override { getStuck(); }
    Recovery restoreCopy(const std::string&, const QDateTime&) override { getStuck(); }
    void tellDamagedCopy(const std::string&, const std::string&) override { getStuck(); }
    std::string fileToSave() override { getStuck(); }
    Conflict settleConflict() override { getStuck(); }
    bool reload() override { getStuck(); }
    void tellNotSaved(const std::string&) override { getStuck(); }
    void tellNotOpened(const std::string&) override { getStuck(); }
    PastStart pastStart(const QString&, const QString&) override { getStuck(); }
    std::string fileToRecord(const RecordOffer&) override { getStuck(); }
    bool stopRecording() override { getStuck(); }
    void tellNotRecorded(const std::string&) override { getStuck(); }
};

/// A widget that throws in one kind of event.
class StuckWidget : public QWidget {
public:
    using QWidget::QWidget;
    QEvent::Type stuckAt = QEvent::None;
    int times = 0;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == stuckAt && ++times > 0)
            getStuck();
        return QWidget::event(event);
    }
};

class FailuresTest : public FrameTest {
protected:
    GuardedApplication& application = *dynamic_cast<GuardedApplication*>(QCoreApplication::instance());

    void SetUp() override
    {
        application.texts = texts;
        application.showsFailures = true;
    }
    void TearDown() override
    {
        application.texts = nullptr;
        application.showsFailures = false;
    }
    /// Returns the texts of the message box that an action causes; empty if there is none.
    template <class Act> QString boxOf(const Act& act)
    {
        QString told;
        QTimer answer;
        QObject::connect(&answer, &QTimer::timeout, [&told] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            told += box->text() + u'\n' + box->informativeText();
            box->accept();
        });
        answer.start(0);
        [[maybe_unused]] const IgnoredLeaks ignored;
        act();
        for (int i = 0; i < 10; ++i)
            QCoreApplication::processEvents();
        return told;
    }
};

TEST_F(FailuresTest, WhatTheUserAsksForAndFailsIsNamedInABoxAndTheWindowStays)
{
    const std::string bench = file("bench.json", oneInstrument);
    window.open(bench);
    show();
    page().optStartTime.userClicked();
    window.files().setQuestions(std::make_unique<StuckQuestions>());
    for (const int entry : {hostText::openSetup, hostText::saveAs, hostText::quit}) {
        QAction& chosen = action(hostText::fileMenu, entry);
        const QString expected = window.text(hostText::actionFailed).arg(withoutMnemonic(chosen.text()));
        EXPECT_EQ(boxOf([&] { chosen.trigger(); }), entry == hostText::quit
                                                        ? window.text(hostText::programFailed) + "\nstuck <b>"
                                                        : expected + "\nstuck <b>");
        EXPECT_TRUE(window.isVisible());
    }
    EXPECT_EQ(boxOf([&] { window.files().open("/x/%1 other.json"); }),
              window.text(hostText::actionFailed).arg("/x/%1 other.json") + "\nstuck <b>");
    window.instruments().handOver = getStuck;
    auto* const button = window.instruments().findChild<QPushButton*>("handOver");
    EXPECT_EQ(boxOf([&] { button->click(); }), window.text(hostText::actionFailed).arg(button->text()) + "\nstuck <b>");
}

TEST_F(FailuresTest, NoExceptionLeavesAnEventHandlerAndAPaintFailureIsShownOnce)
{
    show();
    StuckWidget stuck;
    stuck.show();
    const QString expected = window.text(hostText::programFailed) + "\nstuck <b>";
    EXPECT_EQ(boxOf([&] { later(stuck, getStuck); }), expected);
    for (const auto& [type, act] :
         {std::pair{QEvent::MouseButtonPress, std::function([&] { QTest::mouseClick(&stuck, Qt::LeftButton); })},
          {QEvent::KeyPress, [&] { QTest::keyClick(&stuck, Qt::Key_A); }},
          {QEvent::Resize, [&] { stuck.resize(stuck.width() + 7, 99); }},
          {QEvent::User, [&] { QCoreApplication::postEvent(&stuck, new QEvent(QEvent::User)); }},
          {QEvent::Close, [&] { stuck.close(); }}}) {
        stuck.stuckAt = type;
        EXPECT_EQ(boxOf(act), expected) << type;
    }
    stuck.stuckAt = QEvent::None;
    stuck.show();
    QCoreApplication::processEvents();
    stuck.stuckAt = QEvent::Paint;
    EXPECT_EQ(boxOf([&] { stuck.repaint(); }), expected);
    stuck.times = 0;
    EXPECT_EQ(boxOf([&] { stuck.repaint(); }), "");
    EXPECT_GT(stuck.times, 0);
    stuck.stuckAt = QEvent::None;
}

} // namespace
} // namespace ko::test
