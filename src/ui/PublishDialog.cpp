#include "ui/PublishDialog.h"

#include "base/Error.h"
#include "base/PlainText.h"
#include "framework/GPathEdit.h"
#include "framework/PanelLabels.h"
#include "framework/UiScale.h"
#include "model/Project.h"
#include "model/properties/PropertyT.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

PublishDialog::PublishDialog(QWidget *parent)
    : QDialog(parent)
    , m_directory(new GDirectoryEdit(this))
    , m_suffix(new QLineEdit(this))
    , m_trouble(new QLabel(this))
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setWindowTitle(tr("Publish..."));
    m_directory->setEmptyText(tr("same directory as sprite image"));
    m_directory->setDialogTitle(tr("Output directory"));
    m_directory->setLabel(tr("Output directory:"));
    m_suffix->setAccessibleName(tr("Normal map suffix:"));
    m_trouble->setWordWrap(true);
    m_trouble->setForegroundRole(QPalette::BrightText);
    m_trouble->hide();
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_directory, &GPathEdit::textChanged, this, &PublishDialog::showTrouble);
    connect(m_suffix, &QLineEdit::textChanged, this, &PublishDialog::showTrouble);

    auto *layout = new QFormLayout(this);
    layout->setContentsMargins(scaled(16), scaled(16), scaled(16), scaled(12));
    layout->setVerticalSpacing(scaled(12));
    layout->setHorizontalSpacing(scaled(12));
    layout->addRow(createMarkedUpText(tr("<b>Generate normal map images:</b>"), this));
    layout->addRow(tr("Output directory:"), m_directory);
    layout->addRow(tr("Normal map suffix:"), m_suffix);
    layout->addRow(m_trouble);
    layout->addRow(m_buttons);
    resize(scaled(480), sizeHint().height());
}

bool PublishDialog::run(Project &project)
{
    m_project = &project;
    for (;;) {
        load(project);
        if (exec() != QDialog::Accepted)
            return false;
        if (!m_directory->path().isEmpty() || !m_suffix->text().isEmpty())
            break;
        QMessageBox box(QMessageBox::Critical,
                        tr("Invalid parameters"),
                        tr("Exporting normal maps without suffix to sprite directory would "
                           "overwrite sprite images!"),
                        QMessageBox::NoButton,
                        parentWidget());
        box.addButton(tr("Back"), QMessageBox::AcceptRole);
        box.exec();
    }
    store(project);
    return true;
}

void PublishDialog::load(const Project &project)
{
    m_directory->setPath(project.publishDirectory().value().path());
    m_suffix->setText(project.mapSuffix());
    m_suffix->selectAll();
    showTrouble();
}

QString PublishDialog::trouble() const
{
    if (!fitsInFileName(m_suffix->text()))
        return tr("'%1' can't be a part of a file's name").arg(m_suffix->text());
    try {
        m_project->fileTyped(m_directory->path());
    } catch (const Error &error) {
        return error.message();
    }
    return {};
}

void PublishDialog::showTrouble()
{
    const QString text = trouble();
    m_trouble->setText(text);
    m_trouble->setVisible(!text.isEmpty());
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(text.isEmpty());
    resize(width(), qMax(height(), layout()->totalHeightForWidth(width())));
}

void PublishDialog::store(Project &project) const
{
    const QString text = tr("change export settings");
    const UndoMacro macro(project.undoStack(), text);
    project.publishDirectory().setValue(project.fileTyped(m_directory->path()), text, false);
    project.publishNormalmapPostfix().setValue(plainText(m_suffix->text()), text, false);
}
