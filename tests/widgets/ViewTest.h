#pragma once

#include "widgets/bindings/FormView.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace ko::test {

/// A form with a control of every kind.
struct SampleForm : Form {
    SampleForm() : Form("Sample") {}

    Frame frame{*this, "frame"};
    Label label{*this, "label", &frame};
    TextBox box{*this, "box", &frame};
    TextBox second{*this, "second", &frame};
    ComboBox list{*this, "list", &frame};
    OptionButton one{*this, "one", &frame};
    OptionButton two{*this, "two", &frame};
    CommandButton go{*this, "go", &frame};
    Grid grid{*this, "grid", &frame};
};

/// The sample form in an active window.
class ViewTest : public testing::Test {
protected:
    SampleForm form;
    QWidget window;
    FormView view{form, [](int number) { return QString::number(number); }, &window};
    QGroupBox& frame = view.frame(form.frame);
    QLineEdit& box = view.textBox(form.box);
    QLineEdit& second = view.numberBox(form.second);
    QComboBox& list = view.numberList(form.list);
    QRadioButton& one = view.option(form.one);
    QRadioButton& two = view.option(form.two);
    QPushButton& go = view.button(form.go);
    QTableWidget& grid = view.grid(form.grid);
    QLabel& label = view.label(form.label, {&form.second});

    void SetUp() override
    {
        form.label.setCaption("&Second");
        form.one.setCaption("&One");
        form.two.setCaption("&Two");
        form.go.setCaption("&Go");
        form.list.setItems({{"10", 0}, {"20", 0}, {"30", 0}});
        auto* inside = new QVBoxLayout(&frame);
        for (QWidget* widget : std::initializer_list<QWidget*>{&label, &box, &second, &list, &one, &two, &go, &grid})
            inside->addWidget(widget);
        auto* whole = new QVBoxLayout(&view);
        whole->addWidget(&frame);
        auto* outer = new QVBoxLayout(&window);
        outer->addWidget(&view);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    static void click(QWidget& widget)
    {
        // At a place where all kinds of controls react.
        QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(8, widget.height() / 2));
    }
};

} // namespace ko::test
