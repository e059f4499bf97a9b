#pragma once

#include <QTranslator>

/// Translates every text into itself, marked and two fifths longer, or as long as its German where
/// that is longer: what is shown without marks is not translated, what is clipped has no room.
/// Texts of the toolkit that have no German of ours get marks of their own.
class PseudoLocale : public QTranslator
{
public:
    PseudoLocale();

    bool isEmpty() const override { return false; }
    QString translate(const char *context,
                      const char *source,
                      const char *comment = nullptr,
                      int count = -1) const override;

    /// @p text without what is marked as translated.
    static QString withoutMarked(QString text);
    static bool lacksGerman(const QString &text);

private:
    QTranslator m_german;
};
