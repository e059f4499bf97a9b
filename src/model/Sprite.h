#pragma once

#include "base/GFileName.h"
#include "model/ImageReading.h"
#include "model/properties/PropertyStruct.h"
#include "model/properties/PropertyTypes.h"

#include <QCoreApplication>
#include <QImage>
#include <QSize>

/// The source image of a body: the file and its checksum, and, unsaved, the image itself.
class Sprite : public PropertyStruct
{
    Q_DECLARE_TR_FUNCTIONS(Sprite)

public:
    explicit Sprite(UndoStackOwner &document, const QString &key = tag());
    static QString tag();
    std::shared_ptr<Property> newInstance() const override;

    PropertyFilename &filename() const { return *m_filename; }
    /// Lower-case hexadecimal MD5 of the file's bytes as last loaded.
    PropertyString &checksum() const { return *m_checksum; }

    /// Reads the file. When it can't be read, or has another size than @p expectedSize and
    /// @p checkSize is set, the image becomes a red one of the expected size, so that the trouble
    /// is plain in every view. Observers of the sprite are told.
    void load(const QSize &expectedSize, bool checkSize);
    /// The same with the file read before, as on another thread.
    void load(const ReadImage &read, const QSize &expectedSize, bool checkSize);

    /// True when load() with @p read would tell nothing new.
    bool isOf(const ReadImage &read) const;
    /// The file's when it was loaded last.
    const FileStamp &stamp() const { return m_stamp; }

    /// True when the image is no longer the one that load() would give for this size of the painted
    /// surface (empty for none): the file's name or the size has changed since. False before the
    /// first load().
    bool isOutdated(const QSize &paintedSize) const;
    /// True when the file was read, whatever its size.
    bool isLoaded() const { return m_isLoaded; }
    /// Why the file, which is there, could not be read, in the user's language. Empty when it was
    /// read, or is missing.
    const QString &problem() const { return m_problem; }
    bool isWrongSized() const { return m_isWrongSized; }
    /// True when image() is the file's own and not the placeholder.
    bool hasOwnImage() const { return m_isLoaded && !m_isWrongSized; }
    /// True when the file differed from the one of the stored checksum when it was last loaded.
    bool isChanged() const { return m_isChanged; }
    /// 8-bit ARGB, not premultiplied; the red placeholder where the file does not do.
    const QImage &image() const { return m_image; }
    /// The size of the file's own image, empty when it was not read.
    QSize fileSize() const { return m_fileSize; }
    /// Resource path of an icon that tells of trouble, empty when all is well.
    const QString &statusIcon() const { return m_statusIcon; }

private:
    PropertyFilename *m_filename;
    PropertyString *m_checksum;
    GFileName m_loadedFrom;
    QImage m_image;
    QSize m_fileSize;
    QString m_statusIcon;
    QString m_problem;
    FileStamp m_stamp;
    bool m_isLoaded = false;
    bool m_isWrongSized = false;
    bool m_isChanged = false;
};
