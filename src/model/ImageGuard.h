#pragma once

#include <QByteArray>

/// Why the PNG or JPEG file @p content is not to be given to a decoder: it ends early, or it is
/// built to keep one busy. A text of the context "ReadImage", null when nothing speaks against it.
/// What follows the end of the image doesn't count.
const char *problemOfPng(const QByteArray &content);
const char *problemOfJpeg(const QByteArray &content);

/// The PNG file @p content without its packed texts: no sprite needs them, and unpacking takes a
/// decoder up to a second for each. The first one with the name @p keptKey stays.
QByteArray withoutPackedTexts(const QByteArray &content, const QByteArray &keptKey);

/// The JPEG file @p content without what its decoder would warn of and that loses no pixel: stray
/// bytes between the segments and a version that it does not know; and without what no pixel
/// depends on. The decoder tells only its first warning, which may else hide one of lost data.
QByteArray withoutStrayBytes(const QByteArray &content);
