#include "ui/PublishDialog.h"

#include "base/PlainText.h"
#include "framework/GPathEdit.h"
#include "framework/UiScale.h"
#include "model/Project.h"
#include "model/properties/PropertyT.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>

PublishDialog::PublishDialog(QWidget *parent)
    : QDialog(parent)
    , m_directory(new GDirectoryEdit(this))
    , m_suffix(new QLineEdit(this))
{
    setWindowTitle(tr("Publish..."));
    m_directory->setEmptyText(tr("same directory as sprite image"));
    m_directory->setDialogTitle(tr("Output directory"));
    m_directory->setLabel(tr("Output directory:"));
    m_suffix->setAccessibleName(tr("Normal map suffix:"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QFormLayout(this);
    layout->setContentsMargins(scaled(16), scaled(16), scaled(16), scaled(12));
    layout->setVerticalSpacing(scaled(12));
    layout->setHorizontalSpacing(scaled(12));
    layout->addRow(new QLabel(tr("<b>Generate normal map images:</b>"), this));
    layout->addRow(tr("Output directory:"), m_directory);
    layout->addRow(tr("Normal map suffix:"), m_suffix);
    layout->addRow(buttons);
    resize(scaled(480), sizeHint().height());
}

bool PublishDialog::run(Project &project)
{
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
}

void PublishDialog::store(Project &project) const
{
    const QString text = tr("change export settings");
    const UndoMacro macro(project.undoStack(), text);
    project.publishDirectory().setValue(GFileName(m_directory->path()), text, false);
    project.publishNormalmapPostfix().setValue(plainText(m_suffix->text()), text, false);
}
