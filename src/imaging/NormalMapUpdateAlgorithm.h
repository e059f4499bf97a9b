#pragma once

#include "imaging/NormalMapUpdateParams.h"
#include "imaging/SynchronousUpdateAlgorithm.h"

#include <QImage>
#include <QPair>

/// Keeps a surface and its normals up to date with what is painted; owned by its processor and used
/// by one task at a time. The result is the surface with all pieces in it, and its normal map.
///
/// A piece is pasted over the surface as it was last sent whole, not over what earlier pieces made
/// of it: under a soft mask a stroke that announces the same cells at every step would otherwise
/// converge to its full strength.
///
/// A step costs its pieces, not the image. Shared images are copied whole when one of the sharers
/// writes, so two generations take turns: the one last handed out stays untouched, while the older
/// one, which nobody looks at any more, catches up and takes the new pieces. A piece that covers
/// the whole surface becomes the surface itself. A surface that nobody paints on has one generation
/// only, whose cells are those of the document.
///
/// A whole surface, as after a commit or an undo, costs what differs from the one shown. No
/// generation keeps its cells in the document's block, or the next steps of a stroke would copy it.
class NormalMapUpdateAlgorithm
    : public SynchronousUpdateAlgorithm<NormalMapUpdateParams, QPair<AngleImage, QImage>>
{
public:
    QPair<AngleImage, QImage> compute(const NormalMapUpdateParams &params) override;
    /// A whole surface takes the place of what is pending. A piece is added to it, and pending
    /// pieces that it covers go; the whole surface and the mask stay those of @p pending.
    NormalMapUpdateParams merge(const NormalMapUpdateParams &pending,
                                const NormalMapUpdateParams &incoming) const override;
    /// Where the last result may differ from the one before it; empty when it is the same. Read
    /// while nothing is computed.
    const QRect &changedArea() const { return m_changedArea; }

private:
    struct Generation
    {
        AngleImage surface;
        QImage normals;
    };

    QRect differenceTo(const AngleImage &image) const;
    void store(const AngleImage &image, bool expectsPieces);
    void startAnew(const AngleImage &image);
    void takeTurns(const QRegion &changing);
    void paste(const NormalMapUpdateParams &params);
    void leaveDocument();

    AngleImage m_stored; ///< as last sent whole
    Generation m_current;
    Generation m_older;
    QRegion m_behind; ///< where the older generation differs from the current one
    QRect m_painted;  ///< where the current surface differs from the stored one
    QRect m_changedArea;
};
