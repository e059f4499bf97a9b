#pragma once

#include <QString>

QT_BEGIN_NAMESPACE
class QLabel;
class QWidget;
QT_END_NAMESPACE

/// The title of a group of controls: small, semi-bold, quiet.
QLabel *createPanelTitle(const QString &text, QWidget *parent = nullptr);

/// A text with markup, which other labels show as it stands.
QLabel *createMarkedUpText(const QString &text, QWidget *parent = nullptr);

/// A line of quiet text that takes as many lines as it needs.
QLabel *createQuietText(const QString &text, QWidget *parent = nullptr);
