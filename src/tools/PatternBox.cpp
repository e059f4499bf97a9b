#include "tools/PatternBox.h"

#include "framework/PlainToolTip.h"
#include "framework/UiScale.h"
#include "imaging/PaintToolStructurePreviewJob.h"
#include "imaging/Patterns.h"
#include "tools/PatternReading.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include <algorithm>
#include <array>

namespace {
constexpr int pathRole = Qt::UserRole;
constexpr int isDrawnRole = Qt::UserRole + 1;
constexpr int iconSide = 16;
constexpr int thumbnailSide = 40;

/// Rows of the list have larger thumbnails than the box itself.
class PatternDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const int height = scaled(thumbnailSide + 8);
        return {QStyledItemDelegate::sizeHint(option, index).width(), height};
    }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->decorationSize = QSize(scaled(thumbnailSide), scaled(thumbnailSide));
        option->state.setFlag(QStyle::State_HasFocus, false); // the chosen row is filled anyway
    }
};

bool isBuiltIn(const QString &path)
{
    return QFileInfo(path).path() == builtInPatterns();
}

// What comes with the program is shown in the user's language.
[[maybe_unused]] constexpr std::array builtInNames{QT_TRANSLATE_NOOP("Patterns", "bark"),
                                                   QT_TRANSLATE_NOOP("Patterns", "brick"),
                                                   QT_TRANSLATE_NOOP("Patterns", "chain-mail"),
                                                   QT_TRANSLATE_NOOP("Patterns", "hammered-metal"),
                                                   QT_TRANSLATE_NOOP("Patterns", "hexagons"),
                                                   QT_TRANSLATE_NOOP("Patterns", "leather"),
                                                   QT_TRANSLATE_NOOP("Patterns", "sand"),
                                                   QT_TRANSLATE_NOOP("Patterns", "scales"),
                                                   QT_TRANSLATE_NOOP("Patterns", "scratches"),
                                                   QT_TRANSLATE_NOOP("Patterns", "stone"),
                                                   QT_TRANSLATE_NOOP("Patterns", "wood-grain"),
                                                   QT_TRANSLATE_NOOP("Patterns", "woven-cloth")};

QString nameOf(const QString &path)
{
    const QString name = QFileInfo(path).completeBaseName();
    return isBuiltIn(path) ? QCoreApplication::translate("Patterns", qUtf8Printable(name)) : name;
}

QString originOf(const QString &path)
{
    return isBuiltIn(path) ? PatternBox::tr("Comes with the program")
                           : QDir::toNativeSeparators(path);
}

QImage withRoundCorners(const QImage &image)
{
    const double radius = image.width() * 3.0 / thumbnailSide;
    QImage round(image.size(), QImage::Format_ARGB32_Premultiplied);
    round.fill(Qt::transparent);
    QPainter painter(&round);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(image);
    painter.drawRoundedRect(round.rect(), radius, radius);
    return round;
}
} // namespace

PatternThumbnail PatternThumbnailJob::compute(const QString &path)
{
    const ReadPattern read = readPattern(path);
    if (read.image.isNull())
        return {path, {}, read.problem};
    // A part of it, large enough to be told from others.
    const int longest = std::max(read.image.width(), read.image.height());
    const double shown = std::max(longest * 0.5, 32.0);
    PaintToolStructureParams params;
    params.pattern = read.image;
    params.intensity = 2.5;
    params.scale = m_side / shown;
    params.size = {m_side, m_side};
    return {path, withRoundCorners(PaintToolStructurePreviewJob().compute(params)), {}};
}

PatternBox::PatternBox(QWidget *parent)
    : QComboBox(parent)
    , m_job(int(scaled(thumbnailSide) * devicePixelRatioF()))
{
    setItemDelegate(new PatternDelegate(this));
    setFocusPolicy(Qt::StrongFocus);
    setIconSize({scaled(iconSide), scaled(iconSide)});
    // Long names of files don't widen the panel.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(8);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(this, &QComboBox::currentTextChanged, this, [this] {
        showCurrent();
        Q_EMIT patternChosen(chosen());
    });
    connect(&m_thread, &AsyncUpdateThreadBase::resultAvailable, this, &PatternBox::takeThumbnail);
}

void PatternBox::readFolders(const QStringList &folders)
{
    const QString former = chosen();
    const QSignalBlocker quiet(this);
    clear();
    for (const QString &path : findPatterns(folders))
        addPattern(path);
    setCurrentIndex(std::max(0, findData(former, pathRole)));
    showCurrent();
}

void PatternBox::addPattern(const QString &path)
{
    QPixmap nothing(iconSize());
    nothing.fill(Qt::transparent);
    addItem(nothing, nameOf(path), path);
    setItemData(count() - 1, plainToolTip(originOf(path)), Qt::ToolTipRole);
}

void PatternBox::choose(const QString &path)
{
    const int index = findData(path, pathRole);
    if (index >= 0)
        setCurrentIndex(index);
}

void PatternBox::showPopup()
{
    for (int index = 0; index < count(); ++index)
        drawThumbnail(index);
    QComboBox::showPopup();
}

void PatternBox::showEvent(QShowEvent *event)
{
    QComboBox::showEvent(event);
    showCurrent();
}

void PatternBox::wheelEvent(QWheelEvent *event)
{
    // Who scrolls the panel doesn't mean the box that passes below the pointer.
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

void PatternBox::showCurrent()
{
    setToolTip(currentData(Qt::ToolTipRole).toString());
    if (isVisible())
        drawThumbnail(currentIndex());
}

void PatternBox::drawThumbnail(int index)
{
    if (index < 0 || itemData(index, isDrawnRole).toBool())
        return;
    setItemData(index, true, isDrawnRole);
    m_thread.requestUpdate(itemData(index, pathRole).toString());
}

void PatternBox::takeThumbnail()
{
    const PatternThumbnail &drawn = m_thread.result();
    const int index = findData(drawn.path, pathRole);
    if (index < 0)
        return; // it is gone meanwhile
    if (drawn.problem.isEmpty()) {
        QIcon icon(QPixmap::fromImage(drawn.image));
        icon.addPixmap(QPixmap::fromImage(drawn.image), QIcon::Selected); // without a tint
        setItemIcon(index, icon);
    } else {
        QFont slanted = font();
        slanted.setItalic(true);
        setItemData(index, slanted, Qt::FontRole);
        setItemData(index,
                    plainToolTip(originOf(drawn.path) + QLatin1Char('\n') + drawn.problem),
                    Qt::ToolTipRole);
    }
    setToolTip(currentData(Qt::ToolTipRole).toString());
}
