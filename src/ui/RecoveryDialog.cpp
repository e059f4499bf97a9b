#include "ui/RecoveryDialog.h"

#include "base/PlainText.h"
#include "framework/Proposal.h"
#include "framework/QuotedName.h"
#include "framework/UiScale.h"
#include "model/RecoveryStore.h"
#include "ui/SpriteDelegate.h"
#include "ui/SpriteListModel.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr int pictureSide = 160;

QString nameOf(const RecoveryEntry &entry)
{
    if (!entry.index)
        return RecoveryDialog::tr("Unreadable snapshot");
    const QString &path = entry.index->projectPath;
    return path.isEmpty() ? RecoveryDialog::tr("Untitled") : QFileInfo(path).fileName();
}

QImage pictureOf(const RecoveryEntry &entry)
{
    const QString name = entry.index ? entry.index->thumbnail : QString();
    return name.isEmpty() ? QImage() : QImage(entry.folder->filePath(name), "PNG");
}

bool wasTried(const RecoveryEntry &entry)
{
    return entry.folder->hasMark(RecoveryFolder::Mark::Tried);
}

bool wasGivenUp(const RecoveryEntry &entry)
{
    return entry.folder->hasMark(RecoveryFolder::Mark::GivenUp);
}

QString placeOf(const RecoveryEntry &entry)
{
    if (!entry.index)
        return RecoveryDialog::tr("It is kept in '%1'.").arg(entry.folder->path());
    const QString &path = entry.index->projectPath;
    return path.isEmpty() ? RecoveryDialog::tr("Never saved")
                          : shownText(QDir::toNativeSeparators(path));
}

QStringList remarksOn(const RecoveryEntry &entry)
{
    QStringList remarks;
    if (wasTried(entry))
        remarks.append(RecoveryDialog::tr("The program ended while recovering it the last time."));
    if (!entry.index || entry.index->projectPath.isEmpty())
        return remarks;
    const QFileInfo file(entry.index->projectPath);
    if (!file.exists())
        remarks.append(RecoveryDialog::tr("The project's file is not there any more."));
    else if (file.lastModified() > entry.index->time)
        remarks.append(RecoveryDialog::tr("The project's file was changed after that."));
    return remarks;
}
} // namespace

RecoveryDialog::RecoveryDialog(std::vector<RecoveryEntry> &entries, QWidget *parent)
    : QDialog(parent)
    , m_entries(entries)
    , m_text(new QLabel(this))
    , m_list(new QListWidget(this))
    , m_picture(new QLabel(this))
    , m_details(new QLabel(this))
    , m_hint(new QLabel(this))
{
    setWindowTitle(tr("Unsaved work"));
    m_text->setWordWrap(true);
    m_hint->setWordWrap(true);
    m_list->setItemDelegate(new SpriteDelegate(m_list));
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setAccessibleName(tr("Unsaved work"));
    m_picture->setFixedSize(scaled(pictureSide), scaled(pictureSide));
    m_picture->setAlignment(Qt::AlignCenter);
    m_details->setTextFormat(Qt::PlainText);
    m_details->setWordWrap(true);
    m_details->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_details->setMinimumWidth(scaled(pictureSide));

    auto *buttons = new QDialogButtonBox(this);
    m_recover = buttons->addButton(tr("Recover"), QDialogButtonBox::AcceptRole);
    auto *remove = buttons->addButton(tr("Delete..."), QDialogButtonBox::DestructiveRole);
    m_later = buttons->addButton(tr("Later"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    // Not when the program is ended while the dialog is open: that decides nothing.
    connect(this, &QDialog::rejected, this, &RecoveryDialog::removeGivenUp);
    connect(remove, &QPushButton::clicked, this, &RecoveryDialog::deleteCurrent);

    auto *side = new QVBoxLayout;
    side->addWidget(m_picture);
    side->addWidget(m_details, 1);
    auto *middle = new QHBoxLayout;
    middle->setSpacing(scaled(12));
    middle->addWidget(m_list, 1);
    middle->addLayout(side, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(12), scaled(12), scaled(12), scaled(12));
    layout->setSpacing(scaled(8));
    layout->addWidget(m_text);
    layout->addLayout(middle, 1);
    layout->addWidget(m_hint);
    layout->addWidget(buttons);
    for (const RecoveryEntry &entry : entries)
        addRow(entry);
    connect(m_list, &QListWidget::currentRowChanged, this, &RecoveryDialog::showCurrent);
    m_list->setCurrentRow(0);
    resize(scaled(560), scaled(360));
}

void RecoveryDialog::addRow(const RecoveryEntry &entry)
{
    auto *row = new QListWidgetItem(shownText(nameOf(entry)), m_list);
    row->setData(SpriteListModel::imageRole, pictureOf(entry));
    if (!entry.index || wasTried(entry))
        row->setData(SpriteListModel::statusIconRole,
                     QStringLiteral(":/qrv_tools/icons/Icons_SpriteMissing.svg"));
}

RecoveryEntry *RecoveryDialog::choose()
{
    if (m_entries.empty())
        return nullptr;
    showOffer();
    if (exec() != Accepted)
        return nullptr;
    return &m_entries[std::size_t(m_list->currentRow())];
}

// Before each showing: a recovery that failed makes what was given up wanted again.
void RecoveryDialog::showOffer()
{
    const bool isLastOffer = std::all_of(m_entries.begin(), m_entries.end(), wasGivenUp);
    if (!isLastOffer)
        m_text->setText(tr("The program ended unexpectedly. It had kept this unsaved work:"));
    else if (m_entries.size() == 1)
        m_text->setText(tr("You gave up this unsaved work. It is offered for the last time:"));
    else
        m_text->setText(tr("You gave up this unsaved work:"));
    m_later->setText(isLastOffer ? tr("Don't recover") : tr("Later"));
    const QDateTime now = QDateTime::currentDateTimeUtc();
    for (std::size_t row = 0; row < m_entries.size(); ++row) {
        const RecoveryEntry &entry = m_entries[row];
        const QString detail = entry.index ? age(entry.index->time, now) : tr("Can't be read");
        m_list->item(int(row))->setData(SpriteListModel::detailRole,
                                        wasGivenUp(entry) ? tr("%1, given up").arg(detail)
                                                          : detail);
    }
    showCurrent();
}

// What was seen may go after some days.
void RecoveryDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    for (const RecoveryEntry &entry : m_entries)
        entry.folder->setMark(RecoveryFolder::Mark::Shown);
}

void RecoveryDialog::showCurrent()
{
    const int row = m_list->currentRow();
    if (row < 0)
        return;
    const RecoveryEntry &entry = m_entries[std::size_t(row)];
    QPixmap picture =
        QPixmap::fromImage(m_list->item(row)->data(SpriteListModel::imageRole).value<QImage>());
    if (!picture.isNull())
        picture = picture.scaled(m_picture->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    m_picture->setPixmap(picture);
    m_picture->setVisible(!picture.isNull());
    QStringList lines{placeOf(entry)};
    if (entry.index)
        lines.prepend(QLocale().toString(entry.index->time.toLocalTime(), QLocale::ShortFormat));
    m_details->setText((lines + remarksOn(entry)).join(QStringLiteral("\n\n")));
    m_recover->setEnabled(entry.index.has_value());
    // What has ended a program once is tried again by a click only.
    const bool isSafe = entry.index && !wasTried(entry);
    m_recover->setDefault(isSafe);
    m_recover->setAutoDefault(isSafe);
    showHint();
}

void RecoveryDialog::showHint()
{
    const auto givenUp = std::size_t(std::count_if(m_entries.begin(), m_entries.end(), wasGivenUp));
    QStringList hints;
    if (givenUp == 0)
        hints.append(tr("You can recover one now. The next start offers the others."));
    else
        hints.append(tr("If you recover one, the next start offers the others."));
    if (givenUp == m_entries.size())
        hints.append(tr("Don't recover removes all of it."));
    else if (givenUp > 0)
        hints.append(tr("Later removes what you gave up."));
    m_hint->setText(hints.join(QLatin1Char('\n')));
    m_hint->setVisible(m_entries.size() > 1);
}

void RecoveryDialog::deleteCurrent()
{
    const int row = m_list->currentRow();
    const RecoveryEntry &entry = m_entries[std::size_t(row)];
    const bool isOfferedAgain = entry.index && !wasGivenUp(entry);
    const Proposal deleting{
        tr("Delete?"),
        tr("Delete what was kept of %1?").arg(quoted(m_list->item(row)->text())),
        isOfferedAgain ? tr("The next start offers it for the last time.")
                       : tr("It can't be recovered then."),
        tr("Delete")};
    if (!isAgreedTo(deleting, this))
        return;
    if (isOfferedAgain)
        entry.folder->setMark(RecoveryFolder::Mark::GivenUp);
    else
        RecoveryFolder::clear(entry.folder->path());
    // The list chooses another row while this one is still counted.
    delete m_list->takeItem(row);
    m_entries.erase(m_entries.begin() + row);
    m_list->setFocus();
    if (m_entries.empty())
        reject();
    else
        showOffer();
}

// They were offered once more. When another one is recovered, they stay for the next start.
void RecoveryDialog::removeGivenUp()
{
    for (const RecoveryEntry &entry : m_entries) {
        if (wasGivenUp(entry))
            RecoveryFolder::clear(entry.folder->path());
    }
}

QString RecoveryDialog::age(const QDateTime &time, const QDateTime &now)
{
    const qint64 minutes = time.secsTo(now) / 60;
    const qint64 hours = minutes / 60;
    const qint64 days = hours / 24;
    if (minutes < 2)
        return tr("a minute ago");
    if (hours < 1)
        return tr("%1 minutes ago").arg(minutes);
    if (hours < 2)
        return tr("an hour ago");
    if (days < 1)
        return tr("%1 hours ago").arg(hours);
    return days < 2 ? tr("a day ago") : tr("%1 days ago").arg(days);
}
