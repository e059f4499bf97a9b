#include "framework/Proposal.h"

#include <QMessageBox>
#include <QPushButton>

bool isAgreedTo(const Proposal &proposal, QWidget *window)
{
    QMessageBox box(
        QMessageBox::Warning, proposal.title, proposal.text, QMessageBox::Cancel, window);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(proposal.consequence);
    box.setWindowModality(Qt::WindowModal);
    const QPushButton *agreeing = box.addButton(proposal.button, QMessageBox::AcceptRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == agreeing;
}
