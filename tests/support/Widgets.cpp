#include "support/Widgets.h"

#include <QLabel>
#include <QTest>

void showActive(QWidget &window)
{
    window.show();
    window.activateWindow();
    if (!QTest::qWaitForWindowExposed(&window) || !QTest::qWaitForWindowActive(&window))
        qFatal("The window does not become active");
}

bool showsText(const QWidget &parent, const QString &text)
{
    const auto labels = parent.findChildren<QLabel *>();
    return std::any_of(labels.begin(), labels.end(), [&text](const QLabel *label) {
        return label->isVisible() && label->text().contains(text);
    });
}
