#include "base/Resources.h"
#include "framework/GAction.h"
#include "model/ItemSelectionModel.h"
#include "model/Project.h"
#include "support/Documents.h"
#include "support/FakeTool.h"
#include "ui/ShapeTreeView.h"
#include "ui/SpritesSidebar.h"
#include "ui/ToolsSidebar.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QSlider>
#include <QTest>
#include <QToolButton>

#include <algorithm>
#include <memory>

namespace {
const QStringList modeNames{QStringLiteral("Texture"),
                            QStringLiteral("Lit surface"),
                            QStringLiteral("Lit texture"),
                            QStringLiteral("Normal map")};

/// The button whose action has the text @p text.
QToolButton *button(const QWidget &sidebar, const QString &text)
{
    for (auto *found : sidebar.findChildren<QToolButton *>()) {
        if (found->defaultAction() && found->defaultAction()->text() == text)
            return found;
    }
    return nullptr;
}

bool shows(const QWidget &sidebar, const QString &text)
{
    const auto labels = sidebar.findChildren<QLabel *>();
    return std::any_of(labels.begin(), labels.end(), [&](const QLabel *label) {
        return label->text() == text && label->isVisible();
    });
}

void press(QWidget &window, const QString &key)
{
    QTest::keySequence(&window, QKeySequence(key));
}
} // namespace

class TestSidebars : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initialiseResources(); }

    void init()
    {
        m_project = std::make_unique<Project>();
        for (int i = 0; i < 3; ++i)
            addBody(*m_project, QString::number(i));
        m_selection.setProject(m_project.get());
    }

    void cleanup()
    {
        m_window.reset();
        m_selection.setProject(nullptr);
    }

    void displayModes_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("showsLight");
        QTest::addColumn<bool>("showsOverlay");
        QTest::newRow("texture") << 0 << false << false;
        QTest::newRow("lit surface") << 1 << true << false;
        QTest::newRow("lit texture") << 2 << true << false;
        QTest::newRow("normal map") << 3 << false << true;
    }

    void displayModes()
    {
        QFETCH(int, mode);
        QFETCH(bool, showsLight);
        QFETCH(bool, showsOverlay);
        auto &sidebar = show(std::make_unique<SpritesSidebar>(m_selection));
        QCOMPARE(sidebar.displayMode(), 2);
        QVERIFY(shows(sidebar, QStringLiteral("Global light")));
        QVERIFY(!shows(sidebar, QStringLiteral("Normal map")));
        QVector<int> sent;
        connect(&sidebar, &SpritesSidebar::displayModeChanged, this, [&](int i) { sent << i; });
        const auto isRight = [&] {
            return sidebar.displayMode() == mode &&
                   shows(sidebar, QStringLiteral("Global light")) == showsLight &&
                   shows(sidebar, QStringLiteral("Normal map")) == showsOverlay;
        };
        const int other = mode == 0 ? 1 : 0;
        press(sidebar, QStringLiteral("Alt+%1").arg(mode + 1));
        QVERIFY(isRight());
        sidebar.setDisplayMode(other);
        QTest::mouseClick(button(sidebar, modeNames.at(mode)), Qt::LeftButton);
        QVERIFY(isRight());
        sidebar.setDisplayMode(other);
        sidebar.setDisplayMode(mode);
        QVERIFY(isRight());
        // What is set already is not sent again.
        sidebar.setDisplayMode(mode);
        QCOMPARE(sent, QVector<int>({mode, other, mode, other, mode}));
    }

    void lightAndOverlay()
    {
        auto &sidebar = show(std::make_unique<SpritesSidebar>(m_selection));
        QVector<bool> rotations;
        connect(&sidebar, &SpritesSidebar::autoRotateLightToggled, this, [&](bool isOn) {
            rotations << isOn;
        });
        auto *box = sidebar.findChild<QCheckBox *>();
        QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
        QVERIFY(box->isChecked());
        sidebar.setDisplayMode(0);
        press(sidebar, QStringLiteral("R"));
        QVERIFY(!box->isChecked());
        QCOMPARE(rotations, QVector<bool>({true, false}));

        QVector<double> factors;
        connect(&sidebar, &SpritesSidebar::textureOverlayChanged, this, [&](double factor) {
            factors << factor;
        });
        sidebar.setDisplayMode(3);
        for (auto *slider : sidebar.findChildren<QSlider *>()) {
            if (!slider->isVisible() ||
                slider->accessibleName() != QLatin1String("Texture overlay"))
                continue;
            QCOMPARE(slider->value(), 0);
            slider->setFocus();
            QTest::keyClick(slider, Qt::Key_Right);
            QTest::keyClick(slider, Qt::Key_End);
        }
        QCOMPARE(factors, QVector<double>({0.01, 1.0}));
    }

    void panelsMakeRoomForTheList()
    {
        auto &sidebar = show(std::make_unique<SpritesSidebar>(m_selection));
        sidebar.setProject(m_project.get());
        QVERIFY(!shows(sidebar, QStringLiteral("Sprite")));
        select(2);
        QVERIFY(shows(sidebar, QStringLiteral("Sprite")));
        QTRY_VERIFY(sidebar.minimumHeight() < 320);
        sidebar.resize(sidebar.width(), 320);
        QTRY_COMPARE(sidebar.height(), 320);
        QVERIFY(sidebar.list().height() >= sidebar.list().minimumSizeHint().height());
        select(0);
        QVERIFY(!shows(sidebar, QStringLiteral("Sprite")));
        sidebar.setProject(nullptr);
    }

    void enabling_data()
    {
        // Of a tool for one body, a tool for several, an effect, and another effect.
        QTest::addColumn<int>("selected");
        QTest::addColumn<bool>("isEffectOpen");
        QTest::addColumn<QString>("enabled");
        QTest::newRow("none") << 0 << false << "- - - -";
        QTest::newRow("one") << 1 << false << "one several bevel import";
        QTest::newRow("two") << 2 << false << "- several bevel import";
        QTest::newRow("none, effect open") << 0 << true << "- - bevel -";
        QTest::newRow("two, effect open") << 2 << true << "- - bevel -";
    }

    void enabling()
    {
        QFETCH(int, selected);
        QFETCH(bool, isEffectOpen);
        QFETCH(QString, enabled);
        auto &sidebar = showTools();
        select(1);
        if (isEffectOpen)
            sidebar.setOpenEffect(m_effects.first());
        select(selected);
        QCOMPARE(enabledTools(), enabled);
        // The active tool stays checked, whether it can be used or not.
        QVERIFY(isEffectOpen || m_tools.first()->action().isChecked());
        sidebar.setOpenEffect(nullptr);
        select(1);
        QCOMPARE(enabledTools(), QStringLiteral("one several bevel import"));
    }

    void enablingFollowsTheCountOnly()
    {
        showTools();
        select(1);
        m_tools.first()->action().setEnabled(false);
        m_selection.setSelection({&m_project->bodies().at(2)});
        QVERIFY(!m_tools.first()->action().isEnabled());
        select(2);
        select(1);
        QVERIFY(m_tools.first()->action().isEnabled());
    }

    void buttonsAreMadeFromTheTools()
    {
        auto &sidebar = showTools();
        QStringList texts;
        for (auto *made : sidebar.findChildren<QToolButton *>()) {
            if (made->isVisible() && made->defaultAction())
                texts << made->text();
        }
        QCOMPARE(texts,
                 QStringList(
                     {QStringLiteral("Bevel"), QStringLiteral("One"), QStringLiteral("Several")}));
        QVERIFY(sidebar.minimumWidth() >= 315);
        m_window.reset();
        std::vector<std::unique_ptr<PaintTool>> tools;
        tools.push_back(std::make_unique<FakeTool>(QStringLiteral("one"), QStringLiteral("One")));
        auto &plain = show(std::make_unique<ToolsSidebar>(
            m_selection, std::move(tools), std::vector<std::unique_ptr<AngleImageTool>>()));
        QVERIFY(!shows(plain, QStringLiteral("Effects")));
        QVERIFY(shows(plain, QStringLiteral("Brushes & Tools")));
    }

    void switchingTools()
    {
        auto &sidebar = showTools();
        select(1);
        QVector<PaintTool *> active;
        connect(&sidebar, &ToolsSidebar::activeToolChanged, this, [&](PaintTool *tool) {
            active << tool;
        });
        QCOMPARE(sidebar.activeTool(), m_tools.first());
        QVERIFY(shows(sidebar, QStringLiteral("setting of one")));
        auto *several = button(sidebar, QStringLiteral("several"));
        QWidget *focus = QApplication::focusWidget();
        QTest::mouseClick(several, Qt::LeftButton);
        QTest::mouseClick(several, Qt::LeftButton);
        QCOMPARE(QApplication::focusWidget(), focus);
        QCOMPARE(active, QVector<PaintTool *>({m_tools.at(1)}));
        QVERIFY(!m_tools.first()->action().isChecked());
        QVERIFY(m_tools.at(1)->action().isChecked());
        QVERIFY(!shows(sidebar, QStringLiteral("setting of one")));
        QVERIFY(shows(sidebar, QStringLiteral("This tool has no settings.")));
        m_tools.first()->action().trigger();
        QVERIFY(shows(sidebar, QStringLiteral("setting of one")));
        QCOMPARE(sidebar.activeTool(), m_tools.first());
    }

    void effectsGiveTheToolBack()
    {
        auto &sidebar = showTools();
        select(1);
        m_tools.at(1)->action().trigger();
        QVector<PaintTool *> active;
        connect(&sidebar, &ToolsSidebar::activeToolChanged, this, [&](PaintTool *tool) {
            active << tool;
        });
        bool isRefused = true;
        connect(&sidebar, &ToolsSidebar::effectRequested, this, [&](AngleImageTool *effect) {
            if (!isRefused)
                sidebar.setOpenEffect(effect);
        });
        auto *bevel = button(sidebar, QStringLiteral("bevel"));
        QTest::mouseClick(bevel, Qt::LeftButton);
        QCOMPARE(checkedTools(), QStringLiteral("several"));
        QVERIFY(active.isEmpty());
        isRefused = false;
        QTest::mouseClick(bevel, Qt::LeftButton);
        QCOMPARE(checkedTools(), QStringLiteral("bevel"));
        QCOMPARE(active, QVector<PaintTool *>({nullptr}));
        sidebar.setOpenEffect(nullptr);
        QCOMPARE(checkedTools(), QStringLiteral("several"));
        QCOMPARE(sidebar.activeTool(), m_tools.at(1));
        QCOMPARE(active, QVector<PaintTool *>({nullptr, m_tools.at(1)}));
    }

private:
    template <class Sidebar>
    Sidebar &show(std::unique_ptr<Sidebar> sidebar)
    {
        Sidebar &shown = *sidebar;
        m_window = std::move(sidebar);
        m_window->resize(330, 900);
        m_window->show();
        m_window->activateWindow();
        if (!QTest::qWaitForWindowActive(m_window.get()))
            qFatal("The window did not become active");
        return shown;
    }

    ToolsSidebar &showTools()
    {
        std::vector<std::unique_ptr<PaintTool>> tools;
        std::vector<std::unique_ptr<AngleImageTool>> effects;
        const auto name = [](const char *text) { return QString::fromLatin1(text); };
        tools.push_back(std::make_unique<FakeTool>(name("one"), name("One")));
        tools.push_back(std::make_unique<FakeTool>(name("several"), name("Several"), true));
        effects.push_back(std::make_unique<FakeTool>(name("bevel"), name("Bevel"), true));
        effects.push_back(std::make_unique<FakeTool>(name("import"), QString(), true));
        m_tools = {tools[0].get(), tools[1].get()};
        m_effects = {effects[0].get(), effects[1].get()};
        auto *layout = new QGridLayout(tools.front()->settingsPanel());
        layout->addWidget(new QLabel(name("setting of one")));
        return show(
            std::make_unique<ToolsSidebar>(m_selection, std::move(tools), std::move(effects)));
    }

    void select(int count)
    {
        m_selection.setSelection(m_project->bodies().all().mid(0, count).toList());
    }

    template <class Condition>
    QStringList tools(Condition holds) const
    {
        QStringList texts;
        const auto add = [&](const AngleImageTool *tool) {
            texts << (holds(tool->action()) ? tool->action().text() : QStringLiteral("-"));
        };
        std::for_each(m_tools.begin(), m_tools.end(), add);
        std::for_each(m_effects.begin(), m_effects.end(), add);
        return texts;
    }

    QString enabledTools() const
    {
        return tools([](const QAction &action) { return action.isEnabled(); })
            .join(QLatin1Char(' '));
    }

    QString checkedTools() const
    {
        QStringList checked = tools([](const QAction &action) { return action.isChecked(); });
        checked.removeAll(QStringLiteral("-"));
        return checked.join(QLatin1Char(' '));
    }

    std::unique_ptr<Project> m_project;
    ItemSelectionModel m_selection;
    std::unique_ptr<QWidget> m_window;
    QVector<PaintTool *> m_tools;
    QVector<AngleImageTool *> m_effects;
};

QTEST_MAIN(TestSidebars)
#include "tst_Sidebars.moc"
