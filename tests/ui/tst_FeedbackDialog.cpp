#include "base/GSettings.h"
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Widgets.h"
#include "ui/FeedbackDialog.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QTest>
#include <QUrl>
#include <QUrlQuery>

class TestFeedbackDialog : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void open(const QUrl &url) { m_opened = url; }

private:
    QString body() const
    {
        return QUrlQuery(m_opened).queryItemValue("body"_s, QUrl::FullyDecoded);
    }

    QUrl m_opened;

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QDesktopServices::setUrlHandler("mailto"_s, this, "open");
    }

    void whatIsSeenIsWhatGoes()
    {
        GSettings settings;
        FeedbackDialog dialog({"Qt: 5"_s, "crash\n"_s + QString(3000, u'x'), "a@b.c"_s}, settings);
        showActive(dialog);
        auto &text = shownChild<QPlainTextEdit>(dialog, "Your feedback"_s);
        auto &along = shownChild<QPlainTextEdit>(dialog, "What goes along"_s);
        const auto click = [&](const char *button) {
            DialogScript::click(QLatin1String(button))(dialog);
        };
        const QString hard = "\u00e4 + b & c = 100% #1?\nsecond line %0A"_s;
        text.setPlainText(hard);
        QCOMPARE(along.toPlainText(), "Qt: 5"_s);
        click("Write a mail");
        QCOMPARE(m_opened.path(), "a@b.c"_s);
        QCOMPARE(body().remove(u'\r'), hard + "\n\nQt: 5"_s);
        QCOMPARE(body().count(u'\r'), 3);

        // Too long for a mail program: it goes by the clipboard.
        dialog.findChildren<QCheckBox *>().last()->click();
        QVERIFY(along.toPlainText().contains("xxx"_s));
        const QString whole = hard + "\n\n"_s + along.toPlainText();
        click("Copy and write a mail");
        QVERIFY(!body().contains("xxx"_s) && m_opened.toEncoded().size() < 2000);
        QCOMPARE(QGuiApplication::clipboard()->text(), whole);

        const Folder folder;
        DialogScript script;
        script.then(DialogScript::chooseFile(folder.path("said.txt"_s)));
        click("Save...");
        QVERIFY(script.isDone());
        QCOMPARE(QString::fromUtf8(contentOf(folder.path("said.txt"_s))), whole + u'\n');
    }

    void withoutAnAddressNothingMailsAndNothingIsLost()
    {
        GSettings settings;
        const auto reopened = [&settings](const QString &typed, bool isCopied) {
            FeedbackDialog dialog({"Qt: 5"_s, {}, {}}, settings);
            showActive(dialog);
            auto &text = shownChild<QPlainTextEdit>(dialog, "Your feedback"_s);
            QString found = text.toPlainText();
            const auto buttons = dialog.findChildren<QAbstractButton *>();
            for (const QAbstractButton *button : buttons)
                if (button->isVisible() && button->text().contains("mail"_s))
                    return "there is a mail button"_s;
            text.setPlainText(typed);
            if (isCopied)
                DialogScript::click("Copy"_s)(dialog);
            dialog.reject();
            return found;
        };
        QCOMPARE(reopened("half a"_s, false), QString());
        QCOMPARE(reopened("half a thought"_s, true), "half a"_s);
        QCOMPARE(reopened({}, false), QString());
    }
};

QTEST_MAIN(TestFeedbackDialog)
#include "tst_FeedbackDialog.moc"
