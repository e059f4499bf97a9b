#pragma once

#include <QByteArray>

/// Why the PNG or JPEG file @p content is not to be given to a decoder: it ends early, or it is
/// built to keep one busy. A text of the context "ReadImage", null when nothing speaks against it.
/// What follows the end of the image doesn't count.
const char *problemOfPng(const QByteArray &content);
const char *problemOfJpeg(const QByteArray &content);

/// The PNG file @p content without its packed texts: no sprite needs them, and unpacking takes a
/// decoder up to a second for each.
QByteArray withoutPackedTexts(const QByteArray &content);
