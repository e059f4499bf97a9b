#pragma once

#include <QVariant>
#include <QWidget>

#include <functional>

/// The editor of one row of a PropertyTreeModel: the controls of its type in one frame, and the way
/// in which they show a value.
class PropertyEditor : public QWidget
{
    Q_OBJECT

public:
    struct Shown
    {
        QVariant value;
        bool isMixed = false;
        QStringList choices;
    };
    using Show = std::function<void(const Shown &)>;

    explicit PropertyEditor(QWidget *parent = nullptr);
    ~PropertyEditor() override;

    /// Appends @p control. Signals of the controls are off while @p show runs.
    void add(QWidget &control, int stretch);
    void setShow(Show show);

    /// Sends nothing.
    void showValue(const Shown &shown);

Q_SIGNALS:
    void edited(const QVariant &value);
    /// The edit that began with the first edited() ends.
    void finished();
    /// The edit is to be taken back.
    void cancelled();

private:
    QVector<QWidget *> m_controls;
    Show m_show;
};
