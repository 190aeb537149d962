#pragma once

#include "widgets/bindings/FormView.h"

#include <QRect>
#include <algorithm>
#include <vector>

namespace ko::test {

/// The place of a part in its window.
inline QRect placeOf(const QWidget& part)
{
    return {part.mapTo(part.window(), QPoint()), part.size()};
}

/// The visible controls within `whole`, row by row from the top and each row from the left.
inline std::vector<std::vector<const Control*>> rowsOf(const FormView& view, const QWidget& whole)
{
    const auto place = [&](const Control* control) { return placeOf(*view.widget(*control)); };
    std::vector<const Control*> seen;
    for (const Control* control : view.form().controls())
        if (const QWidget* widget = view.widget(*control); widget && widget->isVisible() && whole.isAncestorOf(widget))
            if (control->typeName() != "Frame")
                seen.push_back(control);
    std::stable_sort(seen.begin(), seen.end(), [&](const Control* one, const Control* other) {
        return place(one).center().y() < place(other).center().y();
    });
    std::vector<std::vector<const Control*>> rows;
    for (const Control* control : seen) {
        constexpr int tolerance = 8;
        if (rows.empty() || place(control).center().y() - place(rows.back().front()).center().y() > tolerance)
            rows.emplace_back();
        rows.back().push_back(control);
    }
    for (auto& row : rows)
        std::sort(row.begin(), row.end(),
                  [&](const Control* one, const Control* other) { return place(one).left() < place(other).left(); });
    return rows;
}

/// The names of these controls: "one two / three".
inline std::string namesOf(const std::vector<std::vector<const Control*>>& rows)
{
    std::string names;
    for (const auto& row : rows) {
        names += names.empty() ? "" : "/ ";
        for (const Control* control : row)
            names += control->name() + ' ';
    }
    return names.substr(0, names.size() - 1);
}

} // namespace ko::test
