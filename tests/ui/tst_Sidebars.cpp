#include "base/GSettings.h"
#include "base/Resources.h"
#include "framework/GAction.h"
#include "framework/GIntEdit.h"
#include "model/ItemSelectionModel.h"
#include "model/Project.h"
#include "support/Documents.h"
#include "support/FakeTool.h"
#include "support/Widgets.h"
#include "tools/ToolPanel.h"
#include "ui/EditorTools.h"
#include "ui/ShapeTreeView.h"
#include "ui/SpritesSidebar.h"
#include "ui/ToolsSidebar.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QSettings>
#include <QSlider>
#include <QTest>
#include <QToolButton>

#include <algorithm>
#include <memory>

namespace {
/// Clicks the button whose action has the text @p text.
void click(const QWidget &sidebar, const QString &text)
{
    QTest::mouseClick(&shownChild<QToolButton>(sidebar, text), Qt::LeftButton);
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
        m_settings = std::make_unique<GSettings>();
    }

    void cleanup()
    {
        m_window.reset();
        m_selection.setProject(nullptr);
    }

    void displayModes()
    {
        auto &sidebar = show(std::make_unique<SpritesSidebar>(m_selection));
        QVector<int> sent;
        connect(&sidebar, &SpritesSidebar::displayModeChanged, this, [&](int i) { sent << i; });
        QCOMPARE(sidebar.displayMode(), 2);
        QVERIFY(shows(sidebar, "Global light"_s) && !shows(sidebar, "Normal map"_s));
        const QString buttons[] = {"Texture"_s, "Lit surface"_s, "Lit texture"_s, "Normal map"_s};
        for (int mode = 0; mode < 4; ++mode) {
            const auto isRight = [&] {
                return sidebar.displayMode() == mode &&
                       shows(sidebar, "Global light"_s) == (mode == 1 || mode == 2) &&
                       shows(sidebar, "Normal map"_s) == (mode == 3);
            };
            const int other = (mode + 2) % 4;
            sidebar.setDisplayMode(other);
            sent.clear();
            press(sidebar, "Alt+%1"_s.arg(mode + 1));
            QVERIFY(isRight());
            sidebar.setDisplayMode(other);
            click(sidebar, buttons[mode]);
            QVERIFY(isRight());
            sidebar.setDisplayMode(other);
            sidebar.setDisplayMode(mode);
            QVERIFY(isRight());
            // What is set already is not sent again.
            sidebar.setDisplayMode(mode);
            QCOMPARE(sent, QVector<int>({mode, other, mode, other, mode}));
        }
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
        press(sidebar, "R"_s);
        QVERIFY(!box->isChecked());
        QCOMPARE(rotations, QVector<bool>({true, false}));

        QVector<double> factors;
        connect(&sidebar, &SpritesSidebar::textureOverlayChanged, this, [&](double factor) {
            factors << factor;
        });
        sidebar.setDisplayMode(3);
        auto &slider = shownChild<QSlider>(sidebar, "Texture overlay"_s);
        QCOMPARE(slider.value(), 0);
        slider.setFocus();
        QTest::keyClick(&slider, Qt::Key_Right);
        QTest::keyClick(&slider, Qt::Key_End);
        QCOMPARE(factors, QVector<double>({0.01, 1.0}));
    }

    void panelsMakeRoomForTheList()
    {
        auto &sidebar = show(std::make_unique<SpritesSidebar>(m_selection));
        sidebar.setProject(m_project.get());
        QVERIFY(!shows(sidebar, "Sprite"_s));
        select(2);
        QVERIFY(shows(sidebar, "Sprite"_s));
        QTRY_VERIFY(sidebar.minimumHeight() < 320);
        sidebar.resize(sidebar.width(), 320);
        QTRY_COMPARE(sidebar.height(), 320);
        QVERIFY(sidebar.list().height() >= sidebar.list().minimumSizeHint().height());
        select(0);
        QVERIFY(!shows(sidebar, "Sprite"_s));
        sidebar.setProject(nullptr);
    }

    void enabling()
    {
        // Of a tool for one body, a tool for several, an effect, and another effect.
        const struct
        {
            int selected;
            bool isEffectOpen;
            QString enabled;
        } cases[] = {{0, false, {}},
                     {2, false, "several bevel import"_s},
                     {0, true, "bevel"_s},
                     {2, true, "bevel"_s}};
        auto &sidebar = showTools();
        for (const auto &each : cases) {
            select(1);
            QCOMPARE(tools(&QAction::isEnabled), "one several bevel import"_s);
            if (each.isEffectOpen)
                sidebar.setOpenEffect(m_tools[2]);
            select(each.selected);
            QCOMPARE(tools(&QAction::isEnabled), each.enabled);
            // The active tool stays checked, whether it can be used or not.
            QCOMPARE(tools(&QAction::isChecked), each.isEffectOpen ? "bevel"_s : "one"_s);
            sidebar.setOpenEffect(nullptr);
        }
        select(1);
        QCOMPARE(tools(&QAction::isEnabled), "one several bevel import"_s);
    }

    void enablingFollowsTheCountOnly()
    {
        showTools();
        select(1);
        m_tools[0]->action().setEnabled(false);
        m_selection.setSelection({&m_project->bodies().at(2)});
        QVERIFY(!m_tools[0]->action().isEnabled());
        select(2);
        select(1);
        QVERIFY(m_tools[0]->action().isEnabled());
    }

    void buttonsAreMadeFromTheTools()
    {
        const auto &sidebar = showTools();
        QStringList texts;
        for (const auto *made : sidebar.findChildren<QToolButton *>()) {
            if (made->isVisible() && made->defaultAction())
                texts << made->text();
        }
        QCOMPARE(texts, QStringList({"Bevel"_s, "One"_s, "Several"_s}));
        QVERIFY(shows(sidebar, "Effects"_s));
        const auto &plain =
            show(std::make_unique<ToolsSidebar>(m_selection,
                                                *m_settings,
                                                std::vector<std::unique_ptr<PaintTool>>(),
                                                std::vector<std::unique_ptr<AngleImageTool>>()));
        QVERIFY(!shows(plain, "Effects"_s));
    }

    void switchingTools()
    {
        const auto &sidebar = showTools();
        select(1);
        QVERIFY(shows(sidebar, "setting of one"_s));
        const QWidget *focus = QApplication::focusWidget();
        click(sidebar, "several"_s);
        click(sidebar, "several"_s);
        QCOMPARE(QApplication::focusWidget(), focus);
        QCOMPARE(m_activated, QStringList({"several"_s}));
        QCOMPARE(tools(&QAction::isChecked), "several"_s);
        QVERIFY(!shows(sidebar, "setting of one"_s));
        QVERIFY(shows(sidebar, "This tool has no settings."_s));
        m_tools[0]->action().trigger();
        QVERIFY(shows(sidebar, "setting of one"_s));
        QCOMPARE(sidebar.activeTool(), m_tools[0]);
    }

    void effectsGiveTheToolBack()
    {
        auto &sidebar = showTools();
        select(1);
        click(sidebar, "several"_s);
        bool isRefused = true;
        connect(&sidebar, &ToolsSidebar::effectRequested, this, [&](AngleImageTool *effect) {
            if (!isRefused)
                sidebar.setOpenEffect(effect);
        });
        click(sidebar, "bevel"_s);
        QCOMPARE(tools(&QAction::isChecked), "several"_s);
        isRefused = false;
        click(sidebar, "bevel"_s);
        QCOMPARE(tools(&QAction::isChecked), "bevel"_s);
        sidebar.setOpenEffect(nullptr);
        QCOMPARE(tools(&QAction::isChecked), "several"_s);
        QCOMPARE(m_activated, QStringList({"several"_s, QString(), "several"_s}));
    }

    void toolsAreReloaded()
    {
        showTools().reloadTools();
        for (int tool = 0; tool < 2; ++tool)
            QCOMPARE(static_cast<FakeTool *>(m_tools[tool])->takeLog(), QByteArray("reload"));
    }

    void settingsAreKeptBetweenRuns()
    {
        const Folder folder;
        const auto run = [&]() -> ToolsSidebar & {
            m_window.reset();
            m_settings = std::make_unique<GSettings>(
                std::make_unique<QSettings>(folder.path("kept.ini"_s), QSettings::IniFormat));
            return showEditorTools();
        };
        const auto &sidebar = run();
        select(1);
        QCOMPARE(sidebar.activeTool(), m_editorTools[0]);
        const QByteArray atFirst = toolSettings();
        for (const PaintTool *tool : m_editorTools) {
            for (const ToolSetting &setting : tool->settings())
                setting.write(2);
        }
        const QByteArray chosen = toolSettings();
        QVERIFY(chosen != atFirst);
        m_editorTools[1]->action().trigger();
        const auto &next = run();
        QCOMPARE(toolSettings(), chosen);
        QCOMPARE(next.activeTool(), m_editorTools[1]);
        QVERIFY(next.activeTool()->settingsPanel()->isVisible());
    }

    // Such as a hand or another version left in the file.
    void oddSettingsDoNoHarm()
    {
        showEditorTools();
        const QByteArray atFirst = toolSettings();
        const auto showWith = [this](const QVariant &value) {
            m_settings->setValue("activeTool"_s, value);
            for (const PaintTool *tool : m_editorTools) {
                const QString name = QLatin1String(tool->metaObject()->className());
                for (const ToolSetting &setting : tool->settings())
                    m_settings->setValue(name + QLatin1Char('/') + setting.key, value);
            }
            return showEditorTools().activeTool();
        };
        for (const QVariant &value : {QVariant("abc"_s), {"nan"_s}, {QString()}, {QStringList()}}) {
            const PaintTool *active = showWith(value);
            QCOMPARE(active, m_editorTools.first());
            QCOMPARE(toolSettings(), atFirst);
        }
        const auto size = [this] {
            return m_window->findChild<GIntEdit *>("BrushSize"_s)->value();
        };
        showWith(-1000000);
        QCOMPARE(size(), 1);
        showWith("1000000"_s);
        QCOMPARE(size(), 500);
    }

private:
    template <class Sidebar>
    Sidebar &show(std::unique_ptr<Sidebar> sidebar)
    {
        Sidebar &shown = *sidebar;
        m_window = std::move(sidebar);
        m_window->resize(330, 900);
        showActive(*m_window);
        return shown;
    }

    ToolsSidebar &showTools()
    {
        std::vector<std::unique_ptr<PaintTool>> tools;
        std::vector<std::unique_ptr<AngleImageTool>> effects;
        tools.push_back(std::make_unique<FakeTool>("one"_s, "One"_s));
        tools.push_back(std::make_unique<FakeTool>("several"_s, "Several"_s, true));
        effects.push_back(std::make_unique<FakeTool>("bevel"_s, "Bevel"_s, true));
        effects.push_back(std::make_unique<FakeTool>("import"_s, QString(), true));
        m_tools = {tools[0].get(), tools[1].get(), effects[0].get(), effects[1].get()};
        auto *layout = new QGridLayout(tools.front()->settingsPanel());
        layout->addWidget(new QLabel("setting of one"_s));
        auto &sidebar = show(std::make_unique<ToolsSidebar>(
            m_selection, *m_settings, std::move(tools), std::move(effects)));
        m_activated.clear();
        connect(&sidebar, &ToolsSidebar::activeToolChanged, this, [this](const PaintTool *tool) {
            m_activated << (tool ? tool->action().text() : QString());
        });
        return sidebar;
    }

    ToolsSidebar &showEditorTools()
    {
        auto tools = makeTools(*m_settings);
        m_editorTools.clear();
        for (const auto &tool : tools)
            m_editorTools.append(tool.get());
        return show(std::make_unique<ToolsSidebar>(m_selection,
                                                   *m_settings,
                                                   std::move(tools),
                                                   std::vector<std::unique_ptr<AngleImageTool>>()));
    }

    /// All that the editor's tools keep, in lines.
    QByteArray toolSettings() const
    {
        QStringList lines;
        for (const PaintTool *tool : m_editorTools) {
            for (const ToolSetting &setting : tool->settings())
                lines << tool->text() + setting.key + setting.read().toString();
        }
        return lines.join(QLatin1Char('\n')).toUtf8();
    }

    void select(int count)
    {
        m_selection.setSelection(m_project->bodies().all().mid(0, count).toList());
    }

    // The texts of the tools whose actions are so.
    QString tools(bool (QAction::*isSo)() const) const
    {
        QStringList texts;
        for (const AngleImageTool *tool : m_tools) {
            if ((tool->action().*isSo)())
                texts << tool->action().text();
        }
        return texts.join(QLatin1Char(' '));
    }

    std::unique_ptr<Project> m_project;
    ItemSelectionModel m_selection;
    std::unique_ptr<GSettings> m_settings;
    std::unique_ptr<QWidget> m_window;
    QVector<AngleImageTool *> m_tools;
    QVector<PaintTool *> m_editorTools;
    QStringList m_activated;
};

QTEST_MAIN(TestSidebars)
#include "tst_Sidebars.moc"
