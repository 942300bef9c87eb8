// The commands of the menus.
#include "main_window.h"

#include "recent_files.h"
#include "report/shown_text.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtWidgets/QAction>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <algorithm>

namespace {

constexpr const char *menuTitles[] = {
    QT_TRANSLATE_NOOP("MainWindow", "&File"),
    QT_TRANSLATE_NOOP("MainWindow", "&Edit"),
    QT_TRANSLATE_NOOP("MainWindow", "&View"),
    QT_TRANSLATE_NOOP("MainWindow", "&Go"),
    QT_TRANSLATE_NOOP("MainWindow", "&Help"),
};

/// A path as the text of an action.
QString actionText(const QString &path)
{
    return lineText(QDir::toNativeSeparators(path)).replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

const std::vector<MainWindow::ActionRow> &MainWindow::actionRows()
{
    using W = MainWindow;
    static const std::vector<ActionRow> rows = {
        {"newReport", Menu::File, QT_TR_NOOP("&New report of this machine"), "Ctrl+N", Needs::NoMaking, &W::makeReport, false, false},
        {"newReportWithoutOpenGL", Menu::File, QT_TR_NOOP("New report without Open&GL"), "Ctrl+Shift+N", Needs::NoMaking, &W::makeReportWithoutOpenGL, false, false},
        {"open", Menu::File, QT_TR_NOOP("&Open..."), "Ctrl+O", Needs::Nothing, &W::open, false, false},
        {"openFromClipboard", Menu::File, QT_TR_NOOP("Open from c&lipboard"), "Ctrl+Shift+V", Needs::Nothing, &W::openFromClipboard, false, true},
        {"compareWith", Menu::File, QT_TR_NOOP("&Compare with..."), "Ctrl+D", Needs::Report, &W::compareWith, false, false},
        {"compareOpenReports", Menu::File, QT_TR_NOOP("Compare open &reports"), "Ctrl+Shift+D", Needs::SeveralReports, &W::compareOpenReports, false, true},
        {"saveAs", Menu::File, QT_TR_NOOP("&Save as..."), "Ctrl+S", Needs::Tab, &W::saveAs, false, false},
        {"print", Menu::File, QT_TR_NOOP("&Print..."), "Ctrl+P", Needs::Output, &W::print, false, false},
        {"exportPdf", Menu::File, QT_TR_NOOP("Save as P&DF..."), "Ctrl+Shift+P", Needs::Output, &W::exportPdf, false, true},
        {"closeTab", Menu::File, QT_TR_NOOP("Close &tab"), "Ctrl+W", Needs::Tab, &W::closeTab, false, false},
        {"copy", Menu::Edit, QT_TR_NOOP("&Copy"), "Ctrl+C", Needs::Tab, &W::copy, false, false},
        {"selectAll", Menu::Edit, QT_TR_NOOP("Select &all"), "Ctrl+A", Needs::Report, &W::selectAll, false, true},
        {"find", Menu::Edit, QT_TR_NOOP("&Find..."), "Ctrl+F", Needs::Report, &W::find, false, false},
        {"findNext", Menu::Edit, QT_TR_NOOP("Find &next"), "F3", Needs::Report, &W::findNext, false, false},
        {"findPrevious", Menu::Edit, QT_TR_NOOP("Find &previous"), "Shift+F3", Needs::Report, &W::findPrevious, false, true},
        {"filterFacts", Menu::Edit, QT_TR_NOOP("Filter fac&ts"), "Ctrl+L", Needs::Report, &W::filterFacts, false, false},
        {"showSummary", Menu::View, QT_TR_NOOP("&Summary"), "Ctrl+1", Needs::Report, &W::showSummary, false, false},
        {"showText", Menu::View, QT_TR_NOOP("&Text"), "Ctrl+2", Needs::Report, &W::showText, false, true},
        {"outline", Menu::View, QT_TR_NOOP("&Outline"), "Ctrl+3", Needs::Nothing, &W::switchOutline, true, false},
        {"facts", Menu::View, QT_TR_NOOP("&Facts"), "Ctrl+4", Needs::Nothing, &W::switchFacts, true, true},
        {"hidePersonalData", Menu::View, QT_TR_NOOP("&Hide personal data"), "Ctrl+H", Needs::Nothing, &W::switchPersonalData, true, false},
        {"hideSelection", Menu::View, QT_TR_NOOP("Hide selectio&n"), "Ctrl+Shift+H", Needs::Redacted, &W::hideSelection, false, true},
        {"zoomIn", Menu::View, QT_TR_NOOP("Zoom &in"), "Ctrl++; Ctrl+=", Needs::Report, &W::zoomIn, false, false},
        {"zoomOut", Menu::View, QT_TR_NOOP("Zoom o&ut"), "Ctrl+-", Needs::Report, &W::zoomOut, false, false},
        {"resetZoom", Menu::View, QT_TR_NOOP("Usual si&ze"), "Ctrl+0", Needs::Report, &W::resetZoom, false, true},
        {"everyMoment", Menu::View, QT_TR_NOOP("Show what changes every &moment"), "Ctrl+E", Needs::Comparison, nullptr, true, false},
        {"chooseSection", Menu::Go, QT_TR_NOOP("&Section..."), "Ctrl+G", Needs::ReportPage, &W::chooseSection, false, false},
        {"nextSection", Menu::Go, QT_TR_NOOP("&Next section"), "Alt+Down", Needs::ReportPage, &W::nextSection, false, false},
        {"previousSection", Menu::Go, QT_TR_NOOP("&Previous section"), "Alt+Up", Needs::ReportPage, &W::previousSection, false, true},
        {"nextDifference", Menu::Go, QT_TR_NOOP("Next &difference"), "F8", Needs::Pair, &W::nextDifference, false, false},
        {"previousDifference", Menu::Go, QT_TR_NOOP("Previous d&ifference"), "Shift+F8", Needs::Pair, &W::previousDifference, false, true},
        {"nextPane", Menu::Go, QT_TR_NOOP("Next pan&e"), "F6", Needs::Nothing, &W::nextPane, false, false},
        {"previousPane", Menu::Go, QT_TR_NOOP("Previous p&ane"), "Shift+F6", Needs::Nothing, &W::previousPane, false, true},
        {"nextTab", Menu::Go, QT_TR_NOOP("Next &tab"), "Ctrl+PgDown; Ctrl+Tab", Needs::Tab, &W::nextTab, false, false},
        {"previousTab", Menu::Go, QT_TR_NOOP("Previous ta&b"), "Ctrl+PgUp; Ctrl+Shift+Tab", Needs::Tab, &W::previousTab, false, false},
        {"keys", Menu::Help, QT_TR_NOOP("&Keys"), "F1", Needs::Nothing, &W::showKeys, false, false},
        {"meaning", Menu::Help, QT_TR_NOOP("&Meaning of the line"), "Shift+F1", Needs::Report, &W::showMeaning, false, true},
        {"about", Menu::Help, QT_TR_NOOP("&About vkviewer"), "", Needs::Nothing, &W::showAbout, false, false},
    };
    return rows;
}

void MainWindow::makeActions()
{
    std::map<Menu, QMenu *> menus;
    for (const Menu menu : {Menu::File, Menu::Edit, Menu::View, Menu::Go, Menu::Help})
        menus[menu] = menuBar()->addMenu(tr(menuTitles[int(menu)]));
    for (const ActionRow &row : actionRows()) {
        auto *action = new QAction(tr(row.text), this);
        action->setObjectName(QLatin1String(row.name));
        action->setShortcuts(QKeySequence::listFromString(QLatin1String(row.keys), QKeySequence::PortableText));
        action->setCheckable(row.isSwitch);
        if (row.run)
            connect(action, &QAction::triggered, this, row.run);
        QMenu *menu = menus[row.menu];
        menu->addAction(action);
        if (row.endsGroup)
            menu->addSeparator();
        m_actionList << action;
        if (action->objectName() == QLatin1String("openFromClipboard"))
            makeRecentMenu(menu);
    }
    auto *quit = new QAction(tr("&Quit"), this);
    quit->setObjectName(QStringLiteral("quit"));
    quit->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_Q));
    quit->setMenuRole(QAction::QuitRole);
    connect(quit, &QAction::triggered, this, &QWidget::close);
    menus[Menu::File]->addAction(quit);
    m_actionList << quit;
}

void MainWindow::makeRecentMenu(QMenu *menu)
{
    auto *recent = new QMenu(tr("R&ecent reports"), menu);
    recent->setToolTipsVisible(true);
    menu->insertMenu(menu->actions().constLast(), recent);
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { showRecentMenu(recent); });
    const auto enable = [this, recent] { recent->menuAction()->setEnabled(!m_recentFiles->paths().isEmpty()); };
    connect(m_recentFiles, &RecentFiles::changed, recent, enable);
    enable();
}

void MainWindow::showRecentMenu(QMenu *menu)
{
    menu->clear();
    const QStringList paths = m_recentFiles->paths();
    for (const QString &path : paths)
        menu->addAction(actionText(path), this, [this, path] { openFiles({path}); });
    menu->addSeparator();
    menu->addAction(tr("&Clear this list"), m_recentFiles, &RecentFiles::clear);
}

QAction *MainWindow::actionNamed(const char *name) const
{
    const auto found = std::find_if(m_actionList.begin(), m_actionList.end(),
                                    [name](const QAction *action) { return action->objectName() == QLatin1String(name); });
    return found == m_actionList.end() ? nullptr : *found;
}

void MainWindow::updateActions()
{
    for (const ActionRow &row : actionRows())
        actionNamed(row.name)->setEnabled(isGiven(row.needs));
}
