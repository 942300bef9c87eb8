#include "section_dialog.h"

#include "section_names.h"
#include "section_titles.h"
#include "shown_text.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>
#include <algorithm>

using namespace velkor;

namespace {

constexpr int mostEntries = 2000; // a text can have many reports
constexpr int longestText = 100;

/// Of the places at which the letters can begin in the name.
int distanceFrom(const QString &letters, const QString &name, int begin)
{
    int gaps = 0;
    int place = begin;
    for (int i = 1; i < letters.size(); ++i) {
        const int next = name.indexOf(letters.at(i), place + 1);
        if (next < 0)
            return -1;
        gaps += next - place - 1;
        place = next;
    }
    const bool beginsWord = begin == 0 || !name.at(begin - 1).isLetterOrNumber();
    return gaps * 10 + (beginsWord ? 0 : 5) + (begin == 0 ? 0 : 1);
}

} // namespace

int SectionDialog::distance(const QString &letters, const QString &name)
{
    const QString wanted = QString(letters).remove(QLatin1Char(' ')).toLower();
    const QString text = name.toLower();
    int best = wanted.isEmpty() ? 0 : -1;
    for (int begin = wanted.isEmpty() ? -1 : text.indexOf(wanted.at(0)); begin >= 0; begin = text.indexOf(wanted.at(0), begin + 1)) {
        const int found = distanceFrom(wanted, text, begin);
        if (found >= 0 && (best < 0 || found < best))
            best = found;
    }
    return best;
}

SectionDialog::SectionDialog(const Reports::Document &document, QWidget *parent)
    : QDialog(parent), m_edit(new QLineEdit), m_list(new QListWidget)
{
    setWindowTitle(tr("Go to section"));
    const int count = std::min(int(document.sections().size()), mostEntries);
    for (int section = 0; section < count; ++section) {
        const Reports::Section &place = document.sections()[std::size_t(section)];
        const QString title = shownSectionTitle(place.row);
        m_entries.push_back({section, place.report == 0 ? title : tr("%1 (report %2)").arg(title).arg(place.report + 1),
                             QString::fromLatin1(Reports::sectionRows()[std::size_t(place.row)].name), Reports::sectionTitle(place.row)});
    }
    auto *label = new QLabel(tr("&A few letters of the section:"));
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(m_edit);
    m_edit->setMaxLength(longestText);
    m_edit->setAccessibleName(tr("A few letters of the section"));
    m_edit->installEventFilter(this);
    m_list->setAccessibleName(tr("Sections"));
    m_list->setUniformItemSizes(true);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("&Go"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_edit);
    layout->addWidget(m_list, 1);
    layout->addWidget(buttons);
    resize(fontMetrics().averageCharWidth() * 60, fontMetrics().height() * 22);

    connect(m_edit, &QLineEdit::textChanged, this, &SectionDialog::showMatches);
    connect(m_list, &QListWidget::itemActivated, this, &QDialog::accept);
    connect(m_list, &QListWidget::itemSelectionChanged, this, [this, buttons] {
        buttons->button(QDialogButtonBox::Ok)->setEnabled(m_list->currentItem() != nullptr);
    });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    showMatches();
}

int SectionDialog::section() const
{
    const QListWidgetItem *item = m_list->currentItem();
    return item ? item->data(Qt::UserRole).toInt() : -1;
}

void SectionDialog::showMatches()
{
    struct Match
    {
        int distance = 0;
        const Entry *entry = nullptr;
    };
    std::vector<Match> matches;
    for (const Entry &entry : m_entries) {
        int least = -1;
        for (const QString &name : {entry.title, entry.name, entry.heading}) {
            const int found = distance(m_edit->text(), name);
            if (found >= 0 && (least < 0 || found < least))
                least = found;
        }
        if (least >= 0)
            matches.push_back({least, &entry});
    }
    std::stable_sort(matches.begin(), matches.end(), [](const Match &one, const Match &other) { return one.distance < other.distance; });
    m_list->clear();
    for (const Match &match : matches) {
        auto *item = new QListWidgetItem(match.entry->title, m_list);
        item->setData(Qt::UserRole, match.entry->section);
        item->setToolTip(plainToolTip(match.entry->name));
    }
    m_list->setCurrentRow(matches.empty() ? -1 : 0);
}

bool SectionDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_edit && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
            QApplication::sendEvent(m_list, event);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}
