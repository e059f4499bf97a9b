#include "tools/effects/Filter.h"

#include "framework/GAction.h"
#include "framework/UiScale.h"
#include "tools/ToolPanel.h"
#include "tools/effects/PositionedDialog.h"

#include <QAbstractSpinBox>
#include <QHBoxLayout>
#include <QPushButton>

Filter::Filter(const QIcon &icon, const QString &label, const QString &shortLabel, QObject *parent)
    : AngleImageTool(icon, label, shortLabel, {}, parent)
{
    connect(&action(), &QAction::triggered, this, [this] {
        if (m_isOpen && m_dialog)
            showDialog();
    });
}

Filter::~Filter()
{
    delete m_dialog;
}

QVector<ToolSetting> Filter::settings() const
{
    return m_panel ? m_panel->settings() : QVector<ToolSetting>();
}

void Filter::start(const EffectContext &context)
{
    if (m_isOpen)
        return;
    m_context = context;
    m_isOpen = true;
    run();
    if (m_isOpen && m_dialog)
        showDialog();
}

bool Filter::hasPreview() const
{
    return m_isOpen && m_dialog;
}

void Filter::apply()
{
    if (hasPreview())
        m_dialog->accept();
}

void Filter::discard()
{
    if (!m_isOpen)
        return;
    if (m_dialog)
        m_dialog->reject();
    else
        discardClicked();
}

ToolPanel &Filter::panel()
{
    if (m_panel)
        return *m_panel;
    m_dialog = new PositionedDialog;
    m_panel = std::make_unique<ToolPanel>(*m_dialog);
    const int edge = scaled(12);
    m_dialog->layout()->setContentsMargins(edge, edge, edge, edge);
    connect(m_dialog, &QDialog::accepted, this, [this] { applyClicked(); });
    connect(m_dialog, &QDialog::rejected, this, [this] { discardClicked(); });
    return *m_panel;
}

PositionedDialog *Filter::dialog() const
{
    return m_dialog;
}

void Filter::addButtons()
{
    auto *row = new QWidget;
    auto *discard = new QPushButton(tr("Discard"));
    auto *apply = new QPushButton(tr("Apply"));
    discard->setObjectName(QStringLiteral("discard"));
    discard->setAutoDefault(false);
    apply->setObjectName(QStringLiteral("apply"));
    apply->setDefault(true);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, scaled(8), 0, 0);
    layout->addStretch(100);
    layout->addWidget(discard);
    layout->addWidget(apply);
    m_panel->addWide(row);
    connect(discard, &QPushButton::clicked, m_dialog, &QDialog::reject);
    connect(apply, &QPushButton::clicked, m_dialog, &QDialog::accept);
}

void Filter::showDialog()
{
    if (!m_hasButtons)
        addButtons();
    m_hasButtons = true;
    // Shortcuts of the window work in it, too.
    if (m_dialog->parentWidget() != m_context.window)
        m_dialog->setParent(m_context.window, m_dialog->windowFlags());
    if (!m_dialog->isVisible()) {
        m_dialog->show();
        // What is typed replaces the first number, also before the dialog has become active.
        if (auto *number = m_dialog->findChild<QAbstractSpinBox *>()) {
            number->setFocus();
            number->selectAll();
        }
    }
    m_dialog->raise();
    m_dialog->activateWindow();
}

void Filter::close()
{
    if (!m_isOpen)
        return;
    m_isOpen = false;
    m_context = {};
    Q_EMIT filterClosed();
}
