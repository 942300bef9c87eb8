// wordSize()

#include "test_main.h"
#include "texts.h"
#include "win/windows_sections.h"

class WordSizeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text() { COMPARE_TEXT(velkor::SystemInfo::WinSysInfo::wordSize(), QStringLiteral("This is a 64bit application.\n")); }
};

TEST_WITH_CORE_APPLICATION(WordSizeTest);
#include "tst_word_size.moc"
