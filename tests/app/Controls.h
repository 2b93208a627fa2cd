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

/// Names of the controls that Tab visits from `first` on until it comes back there, each followed
/// by a blank.
inline std::string tabTravel(QWidget& window, const char* first) {
    QApplication::setActiveWindow(&window);
    control(window, first).setFocus();
    std::string names;
    for (int steps = 0; steps < 100; ++steps) {
        const std::string name = window.focusWidget()->objectName().toStdString();
        if (steps > 0 && name == first)
            break;
        names += name + ' ';
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    }
    return names;
}

} // namespace tovrel
