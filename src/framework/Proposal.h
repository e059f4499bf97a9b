#pragma once

#include <QString>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

/// Something that loses what is there, and is not done by default.
struct Proposal
{
    QString title;
    QString text;        ///< the question, plain
    QString consequence; ///< what is lost
    QString button;      ///< of who agrees
};

/// Asks the user over @p window; true when he agrees.
bool isAgreedTo(const Proposal &proposal, QWidget *window);
