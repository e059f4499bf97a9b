#include "model/Sprite.h"

#include "model/properties/PropertyDescriptionList.h"
#include "model/properties/PropertyDescriptionTypes.h"
#include "model/properties/PropertyT.h"

#include <QFileInfo>

namespace {
// The checksum is the program's own.
const PropertyDescriptionList &spriteDescriptions()
{
    static PropertyDescriptionList list;
    if (list.isEmpty())
        list.add<PropertyDescriptionFilename>(
            QStringLiteral("filename"), Sprite::tr("Image"), Sprite::tr("Image file"), false);
    return list;
}

// The last one is shared: a project may miss many sprites of one size.
QImage placeholder(const QSize &size)
{
    static QImage last;
    if (last.size() != size) {
        last = QImage(size, QImage::Format_ARGB32);
        last.fill(Qt::red);
    }
    return last;
}
} // namespace

Sprite::Sprite(UndoStackOwner &document, const QString &key)
    : PropertyStruct(document, key, &spriteDescriptions())
    , m_filename(&addField<PropertyFilename>(QStringLiteral("filename")))
    , m_checksum(&addField<PropertyString>(QStringLiteral("checksum")))
{
}

QString Sprite::tag()
{
    return QStringLiteral("sprite");
}

std::shared_ptr<Property> Sprite::newInstance() const
{
    return makeAlike<Sprite>(key());
}

void Sprite::load(const QSize &expectedSize, bool checkSize)
{
    load(readImageFile(m_filename->value().path()), expectedSize, checkSize);
}

void Sprite::load(const ReadImage &read, const QSize &expectedSize, bool checkSize)
{
    m_loadedFrom = m_filename->value();
    m_stamp = read.stamp;
    m_statusIcon.clear();
    m_image = read.image;
    m_fileSize = read.image.size();
    m_isLoaded = !read.image.isNull();
    const bool isMissing =
        !m_isLoaded && !read.opened && !QFileInfo::exists(m_filename->value().path());
    m_problem = m_isLoaded || isMissing ? QString() : read.shownProblem();
    m_isWrongSized = m_isLoaded && checkSize && m_fileSize != expectedSize;
    m_isChanged = false;
    if (read.opened) {
        const QString checksum = QString::fromLatin1(read.md5Hex);
        m_isChanged = !m_checksum->value().isEmpty() && m_checksum->value() != checksum;
        m_checksum->setValue(checksum);
    }
    if (!hasOwnImage()) {
        m_image = placeholder(expectedSize);
        m_statusIcon = m_isLoaded ? QStringLiteral(":/qrv_tools/icons/Icons_SpriteWrongSize.svg")
                                  : QStringLiteral(":/qrv_tools/icons/Icons_SpriteMissing.svg");
    }
    notify();
}

bool Sprite::isOf(const ReadImage &read) const
{
    if (m_loadedFrom != m_filename->value() || m_isLoaded == read.image.isNull())
        return false;
    return !read.opened || m_checksum->value() == QString::fromLatin1(read.md5Hex);
}

bool Sprite::isOutdated(const QSize &paintedSize) const
{
    if (m_loadedFrom.isEmpty())
        return false;
    const bool fits = paintedSize.isEmpty() ? !m_isWrongSized : m_image.size() == paintedSize;
    const bool hidesTheFile = m_isWrongSized && m_fileSize == paintedSize;
    return !fits || hidesTheFile || m_loadedFrom != m_filename->value();
}
