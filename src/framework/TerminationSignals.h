#pragma once

#include <QObject>

/// Tells the event loop of the signals that ask the program to end (SIGHUP, SIGINT, SIGTERM), which
/// don't end it any more. What the program was started to ignore stays ignored. One lives at a
/// time; where there are no such signals, it is silent.
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignals(QObject *parent = nullptr);
    ~TerminationSignals() override;

Q_SIGNALS:
    /// The program shall end, by @p number. Told once: the first one is to be followed.
    void received(int number);
};
