#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <stdexcept>
#include <string>

namespace tovrel {

/// The control of a name; the test ends here when there is none.
template <typename Control = QWidget>
Control& control(const QWidget& window, const char* name) {
    auto* found = window.findChild<Control*>(QLatin1String(name));
    if (!found)
        throw std::runtime_error(std::string("no control ") + name);
    return *found;
}

/// Clicks a control near its left edge, where a check box has its indicator.
inline void click(QWidget& target) {
    QTest::mouseClick(&target, Qt::LeftButton, {}, {8, target.height() / 2});
}
inline void click(const QWidget& window, const char* name) { click(control(window, name)); }

inline bool checked(const QWidget& window, const char* name) {
    return control<QAbstractButton>(window, name).isChecked();
}

} // namespace tovrel
