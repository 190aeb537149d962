#pragma once

#include "InDialog.h"
#include "fakes/FakePlatform.h"
#include "look/Look.h"
#include "support/Support.h"
#include "widgets/bindings/FormView.h"
#include "widgets/dialogs/QtModalForms.h"

#include <QDialog>
#include <QPushButton>
#include <QTest>

namespace ko::test {

/// The component's dialogs as a user sees them.
class DialogsTest : public testing::Test {
protected:
    FakePlatform host;
    QtModalForms modalForms;
    Locale now; ///< the locale that the platform returns next
    Platform platform{
        host, host, host, host, host, modalForms, {}, host.platform.createErrorReporter, [this] { return now; }};
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
    static void click(const char* button) { QTest::mouseClick(&part<QPushButton>(button), Qt::LeftButton); }
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
        const InDialog<QDialog> in([&](QDialog& dialog) {
            const QPointer<QDialog> shown = &dialog;
            EXPECT_TRUE(QTest::qWaitForWindowActive(shown));
            user();
            if (shown && shown->isVisible()) {
                ADD_FAILURE() << "the dialog is still open";
                shown->done(0);
            }
        });
        show();
    }
};

} // namespace ko::test
