#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// What keeps an XML text from being read.
struct XmlProblem
{
    QString message;
    qint64 line = 1;
};

/// Looks through an XML text for what would exhaust a parser that keeps it all: a
/// document type with anything in its brackets, such as entities, more than 100 attributes in one
/// element or 500,000 in all, more than 64 elements inside each other, more than 100,000 bodies,
/// more than two million elements, texts and comments, more than 64 MiB; and for errors. Nothing
/// when it can be read.
std::optional<XmlProblem> findXmlProblem(const QByteArray &xml);
