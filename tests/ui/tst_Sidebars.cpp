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
#include "tools/effects/Filter.h"
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
#include <functional>
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

struct FakeEffect : Filter
{
    FakeEffect(const QString &label, const QString &shortLabel)
        : Filter({}, label, shortLabel)
    {
    }
    void run() override {}
};
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

    void toolsAreEnabledForWhatIsSelected()
    {
        auto &sidebar = showTools();
        QVERIFY(shows(sidebar, "Effects"_s));
        for (const bool isEffectOpen : {false, true}) {
            const QString enabled[] = {{}, "one several bevel import"_s, "several bevel import"_s};
            for (const int selected : {0, 1, 2, 1}) {
                select(selected);
                sidebar.setOpenEffect(isEffectOpen ? static_cast<Filter *>(m_tools[2]) : nullptr);
                QCOMPARE(tools(&QAction::isEnabled), isEffectOpen ? "bevel"_s : enabled[selected]);
                // The active tool stays checked, whether it can be used or not.
                QCOMPARE(tools(&QAction::isChecked), isEffectOpen ? "bevel"_s : "one"_s);
            }
        }
        sidebar.reloadTools();
        for (int tool = 0; tool < 2; ++tool)
            QCOMPARE(static_cast<FakeTool *>(m_tools[tool])->takeLog(), QByteArray("reload"));
    }

    void switchingTools()
    {
        auto &sidebar = showTools();
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

        click(sidebar, "bevel"_s); // an effect that nobody opens
        QCOMPARE(tools(&QAction::isChecked), "several"_s);
        m_tools[0]->action().trigger();
        QVERIFY(shows(sidebar, "setting of one"_s));
        QCOMPARE(sidebar.activeTool(), m_tools[0]);
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
        for (const AngleImageTool *tool : m_editorTools) {
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
        std::vector<std::unique_ptr<Filter>> effects;
        tools.push_back(std::make_unique<FakeTool>("one"_s, "One"_s));
        tools.push_back(std::make_unique<FakeTool>("several"_s, "Several"_s, true));
        effects.push_back(std::make_unique<FakeEffect>("bevel"_s, "Bevel"_s));
        effects.push_back(std::make_unique<FakeEffect>("import"_s, QString()));
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
        auto effects = makeEffects(*m_settings);
        for (const auto &effect : effects)
            m_editorTools.append(effect.get());
        return show(std::make_unique<ToolsSidebar>(
            m_selection, *m_settings, std::move(tools), std::move(effects)));
    }

    /// All that the editor's tools keep, in lines.
    QByteArray toolSettings() const
    {
        QStringList lines;
        for (const AngleImageTool *tool : m_editorTools) {
            for (const ToolSetting &setting : tool->settings())
                lines << tool->action().text() + setting.key + setting.read().toString();
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
    QVector<AngleImageTool *> m_editorTools;
    QStringList m_activated;
};

QTEST_MAIN(TestSidebars)
#include "tst_Sidebars.moc"
