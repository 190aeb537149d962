#pragma once

#include "host/chart/StripChart.h"

class QAction;
class QLineEdit;
class QToolBar;

namespace ko {

/// A chart with its buttons, and the marker's text and button.
class ChartPanel : public QWidget {
public:
    /// `locale` must outlive this object.
    ChartPanel(const Texts& texts, const Locale& locale, QWidget* parent);

    [[nodiscard]] StripChart& chart() { return *chart_; }
    /// Adds a marker. For its key to work anywhere in a window, it must be added to the window.
    [[nodiscard]] QAction& marking() { return *mark_; }

    /// Adds a marker with this text to the recording; returns whether that was possible.
    std::function<bool(const std::string& text)> addMarker;
    /// Whether markers can be added now.
    void setMarking(bool isOn);

    /// Marks the present time, with the text that has been entered.
    void mark();

private:
    void addButton(const QString& text, const QString& name, std::function<void()> act);

    Texts texts_;
    StripChart* chart_;
    QToolBar* bar_;
    QLineEdit* text_;
    QAction* mark_ = nullptr;
};

} // namespace ko
