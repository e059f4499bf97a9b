#include "framework/Theme.h"

#include "framework/ThemeStyle.h"

#include <QApplication>
#include <QLabel>
#include <QStyleFactory>
#include <QTextDocument>
#include <QToolTip>
#include <QWidget>

#include <memory>

namespace {

bool isDesktopDark()
{
    // Without roles of our own the application's palette is the desktop's.
    QApplication::setPalette(QPalette());
    const QPalette desktop = QApplication::palette();
    const std::unique_ptr<QStyle> base(QStyleFactory::create(QStringLiteral("Fusion")));
    const bool tellsNothing = desktop == base->standardPalette();
    return tellsNothing || isDarkPalette(desktop);
}

/// Style sheets of single widgets keep the colours that "palette(...)" had when they were set, and
/// labels those of their links.
void renewColors()
{
    for (QWidget *widget : QApplication::allWidgets()) {
        if (const QString sheet = widget->styleSheet(); !sheet.isEmpty())
            widget->setStyleSheet(sheet);
        auto *label = qobject_cast<QLabel *>(widget);
        if (!label || !Qt::mightBeRichText(label->text()))
            continue;
        const QString text = label->text();
        label->setText(QString());
        label->setText(text);
    }
}

} // namespace

void applyTheme(ThemeChoice choice)
{
    if (!qobject_cast<ThemeStyle *>(QApplication::style()))
        QApplication::setStyle(new ThemeStyle);
    const bool goesDark =
        choice == ThemeChoice::Dark || (choice == ThemeChoice::System && isDesktopDark());
    const QPalette palette = themePalette(goesDark);
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    renewColors();
}
