// Addresses in every spelling, and what only resembles one. The addresses are of the ranges for documentation
// (RFC 5737, RFC 3849, RFC 7042) or private.

#include "redaction/addresses.h"
#include "test_main.h"

#include <QtCore/QFile>

using namespace velkor::Reports;

class AddressesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void found_data();
    void found();
    void digitsAtEveryOffset();
    void common_data();
    void common();
    void nothingInReports_data();
    void nothingInReports();
    void hostile_data();
    void hostile();
};

namespace {

std::vector<AddressPlace> addressesIn(const QByteArray &text)
{
    return findAddresses({text.constData(), std::size_t(text.size())});
}

/// Each address as "spelling=canonical", with "!" if it is certain and "?" if not.
QByteArray described(const QByteArray &text)
{
    QByteArrayList list;
    for (const AddressPlace &place : addressesIn(text)) {
        list.append(text.mid(int(place.begin), int(place.end - place.begin)) + '=' + place.canonical.toHex()
                    + (place.isCertain ? '!' : '?'));
    }
    return list.join(' ');
}

void row(const char *name, const QByteArray &text, const QByteArray &expected)
{
    QTest::newRow(name) << text << expected;
}

const QByteArray mac = "00005e00531a";
const QByteArray ip6 = "20010db8000000000000000000000001";

void ip4Rows()
{
    row("nothing", "", "");
    row("IPv4", "192.0.2.57", "192.0.2.57=c0000239!");
    row("in a sentence", "is 192.0.2.57.", "192.0.2.57=c0000239!");
    row("port", "192.0.2.57:8080", "192.0.2.57=c0000239!");
    row("prefix", "10.1.2.0/24", "10.1.2.0=0a010200!");
    row("URL", "http://10.18.10.4/a", "10.18.10.4=0a120a04!");
    row("share", "\\\\10.18.10.4\\a", "10.18.10.4=0a120a04!");
    row("after a password", "u:p@10.18.10.4", "10.18.10.4=0a120a04!");
    row("a printer's port", "IP_10.18.10.4_1", "10.18.10.4=0a120a04!");
    row("after the word", "IP=10.18.10.4", "10.18.10.4=0a120a04!");
    row("can be a version", "10.18.10.4", "10.18.10.4=0a120a04?");
    row("version of five numbers", "10.18.10.4.7", "10.18.10.4=0a120a04?");
    row("port after a point", "192.0.2.57.8080", "192.0.2.57=c0000239?");
    row("a letter before it", "v192.0.2.57", "192.0.2.57=c0000239?");
    row("hexadecimal letters before it", "face192.0.2.57", "192.0.2.57=c0000239?");
    row("a letter after it", "192.0.2.57b", "192.0.2.57=c0000239?");
    row("domain after it", "192.0.2.57.example.net", "192.0.2.57=c0000239!");
    row("zeros", "192.000.002.057", "192.000.002.057=c0000239!");
    row("two", "192.0.2.1-192.0.2.9", "192.0.2.1=c0000201! 192.0.2.9=c0000209!");
    row("hyphens", "ip-192-0-2-57.example.net", "192-0-2-57=c0000239?");
    row("hyphens after a number", "host1-192-0-2-57", "192-0-2-57=c0000239?");
    row("hyphens after a year", "2024-01-192-0-2-57", "192-0-2-57=c0000239?");
    row("underscores", "net_192_0_2_57", "192_0_2_57=c0000239?");
    row("percent-coded", "a%3D192%2E0%2e2%2E57%2F", "192%2E0%2e2%2E57=c0000239!");
    row("reversed", "57.2.0.192.in-addr.arpa", "57.2.0.192=c0000239!");
    row("reversed, capitals", "57.2.0.10.IN-ADDR.ARPA.", "57.2.0.10=0a000239!");
    row("percent-coded brackets", "%5B%3A%3Affff%3A192.0.2.57%5D", "%3A%3Affff%3A192.0.2.57=c0000239!");
    row("largest number", "192.0.2.255", "192.0.2.255=c00002ff!");
    row("too large a number", "192.0.2.256", "");
    row("too many digits", "192.0.2.0057", "");
    row("driver version", "27.20.100.9664", "");
    row("large number before it", "2120.100.0.1.5", "");
    row("three numbers", "192.0.2", "");
    row("a point is missing", "192.0.2.", "");
    row("after bytes that are no UTF-8", "\xff\xfe"
                                         "192.0.2.57\xff",
        "192.0.2.57=c0000239!");
}

void ip6Rows()
{
    row("IPv6", "2001:db8::1", "2001:db8::1=" + ip6 + '!');
    row("full, capitals", "2001:0DB8:0000:0000:0000:0000:0000:0001", "2001:0DB8:0000:0000:0000:0000:0000:0001=" + ip6 + '!');
    row("no zeros", "2001:db8:0:0:0:0:0:1", "2001:db8:0:0:0:0:0:1=" + ip6 + '!');
    row("other gap", "2001:db8:0:0::1", "2001:db8:0:0::1=" + ip6 + '!');
    row("gap at the end", "2001:db8::", "2001:db8::=20010db8000000000000000000000000!");
    row("gap of one group", "2001:db8:1:2:3:4:5::", "2001:db8:1:2:3:4:5::=20010db8000100020003000400050000!");
    row("brackets and port", "[2001:db8::1]:80", "2001:db8::1=" + ip6 + '!');
    row("prefix of 64", "2001:db8::1/64", "2001:db8::1=" + ip6 + '!');
    row("zone", "fe80::1%12", "fe80::1=fe800000000000000000000000000001!");
    row("zone with a name", "fe80::1%eth0", "fe80::1=fe800000000000000000000000000001!");
    row("after a label", "IP:2001:db8::1", "2001:db8::1=" + ip6 + '!');
    row("IPv4 at the end", "64:ff9b::192.0.2.57", "64:ff9b::192.0.2.57=0064ff9b0000000000000000c0000239!");
    row("IPv4 after six groups", "64:ff9b:0:0:0:0:192.0.2.57", "64:ff9b:0:0:0:0:192.0.2.57=0064ff9b0000000000000000c0000239!");
    row("mapped", "::ffff:192.0.2.57", "::ffff:192.0.2.57=c0000239!");
    row("mapped, hexadecimal", "::FFFF:c000:239", "::FFFF:c000:239=c0000239!");
    row("mapped, full", "0:0:0:0:0:ffff:c000:239", "0:0:0:0:0:ffff:c000:239=c0000239!");
    row("percent-coded colons", "[2001%3Adb8%3A%3A1]", "2001%3Adb8%3A%3A1=" + ip6 + '!');
    row("after a percent-coded blank", "%202001:db8::1", "2001:db8::1=" + ip6 + '!');
    row("literal", "2001-db8--1.ipv6-literal.net", "2001-db8--1=" + ip6 + '!');
    row("literal with a zone", "fe80--1s12.IPv6-Literal.net", "fe80--1=fe800000000000000000000000000001!");
    row("hyphens without the domain", "2001-db8-0-0-0-0-0-1", "2001-db8-0-0-0-0-0-1=" + ip6 + '?');
    row("gap of hyphens without the domain", "2001-db8--1", "");
    row("reversed nibbles", "1.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.8.b.d.0.1.0.0.2.ip6.arpa",
        "1.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.8.b.d.0.1.0.0.2=" + ip6 + '!');
    row("loopback", "::1", "::1=00000000000000000000000000000001!");
    row("unspecified", "[::]:80", "::=00000000000000000000000000000000!");
    row("two words", "face::add", "face::add=face0000000000000000000000000add?");
    row("names of C++", "std::find and QString::arg", "");
    row("time", "12:34:56", "");
    row("seven groups", "1:2:3:4:5:6:7", "");
    row("group of five digits", "2001:db8::12345", "");
    row("two gaps", "2001::db8::1", "db8::1=0db80000000000000000000000000001?");
    row("a letter after the group", "2001:db8::1g", "");
    row("three colons", ":::1", "");
}

void macRows()
{
    row("MAC", "00:00:5E:00:53:1A", "00:00:5E:00:53:1A=" + mac + '!');
    row("after a name", "MAC:00:00:5E:00:53:1A", "00:00:5E:00:53:1A=" + mac + '!');
    row("hyphens between bytes", "00-00-5e-00-53-1a", "00-00-5e-00-53-1a=" + mac + '!');
    row("hyphens, digits only", "00-00-50-00-53-10", "00-00-50-00-53-10=000050005310?");
    row("underscores between bytes", "00_00_5E_00_53_1A", "00_00_5E_00_53_1A=" + mac + '?');
    row("bytes with blanks", "00 00 5E 00 53 1A", "");
    row("three groups", "0000.5e00.531a", "0000.5e00.531a=" + mac + '!');
    row("three groups with hyphens", "0000-5e00-531a", "0000-5e00-531a=" + mac + '?');
    row("three groups with colons", "0000:5e00:531a", "0000:5e00:531a=" + mac + '?');
    row("three numbers of four digits", "2001.1000.2000", "2001.1000.2000=200110002000?");
    row("twelve digits", "a 00005E00531A", "00005E00531A=" + mac + '?');
    row("twelve digits in an instance", "BTHENUM\\DEV_00005E00531A\\8&1", "00005E00531A=" + mac + '?');
    row("twelve digits after 0x", "0x00005E00531A", "00005E00531A=" + mac + '?');
    row("twelve digits between addresses", "192.0.2.1 00005E00531A ::1",
        "192.0.2.1=c0000201! 00005E00531A=" + mac + "? ::1=00000000000000000000000000000001!");
    row("thirteen digits", "00005E00531A0", "");
    row("at the end of a GUID", "{4d36e972-e325-11ce-bfc1-00005e00531a}", "00005e00531a=" + mac + '?');
    row("percent-coded MAC", "00%3A00%3A5E%3A00%3A53%3A1A", "00%3A00%3A5E%3A00%3A53%3A1A=" + mac + '!');
    row("without zeros", "0:0:5e:0:53:1a", "0:0:5e:0:53:1a=" + mac + '?');
    row("at the end of a client's id", "01-00-00-5e-00-53-1a", "00-00-5e-00-53-1a=" + mac + '?');
    row("at the end of a DUID", "00:01:00:01:2a:00:00:01:00:00:5e:00:53:1a", "00:00:5e:00:53:1a=" + mac + '?');
    row("five bytes", "00:00:5E:00:53", "");
    row("name of a device", "PCI\\VEN_8086&DEV_1912&SUBSYS_079F1028", "");
    row("date and product id", "6-21-2006 00330-50000-00000-AAOEM", "");
}

} // namespace

void AddressesTest::found_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
    ip4Rows();
    ip6Rows();
    macRows();
}

void AddressesTest::found()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    QCOMPARE(described(text), expected);
}

void AddressesTest::digitsAtEveryOffset()
{
    for (int before = 0; before < 20; ++before) {
        for (int after = 0; after < 20; ++after)
            QCOMPARE(described(QByteArray(before, '-') + mac + QByteArray(after, ' ')), QByteArray(mac + "=" + mac + '?'));
    }
}

void AddressesTest::common_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("expected");
    for (const char *text : {"0.0.0.0", "127.0.0.1", "255.0.0.0", "127.255.255.255", "255.255.255.255", "224.0.0.251", "239.255.255.250",
                             "255.255.255.0", "255.255.254.0", "255.0.0.0", "255.255.255.128", "[::]", "::1", "ff02::fb",
                             "ffff:ffff:ffff:ffff::", "ffff:ffff:ffff:fff0::", "::ffff:127.0.0.1", "00:00:00:00:00:00",
                             "FF-FF-FF-FF-FF-FF", "000000000000"})
        QTest::newRow(text) << QByteArray(text) << true;
    for (const char *text : {"192.0.2.57", "10.0.0.1", "169.254.1.1", "223.255.255.255", "255.0.255.0", "255.255.255.1",
                             "240.0.0.1", "2001:db8::1", "fe80::1", "::2", "fd00::1", "ff02::1:ff00:531a",
                             "00:00:5E:00:53:1A", "00:00:00:00:00:01", "33:33:ff:00:53:1a"})
        QTest::newRow(text) << QByteArray(text) << false;
}

void AddressesTest::common()
{
    QFETCH(QByteArray, text);
    const std::vector<AddressPlace> places = addressesIn(text);
    QCOMPARE(places.size(), std::size_t(1));
    QTEST(isCommonAddress(places.front()), "expected");
}

void AddressesTest::nothingInReports_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArrayList>("expected");
    // The certain addresses of the reports, in the order in which they first occur.
    QTest::newRow("example") << "docs/example-report.txt"
                             << QByteArrayList {"::1", "ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff", "127.0.0.1", "255.0.0.0", "127.255.255.255",
                                                "02:00:5E:10:00:01", "fe80::5eff:fe10:1", "ffff:ffff:ffff:ffff::",
                                                "192.0.2.17", "255.255.255.0", "192.0.2.255", "192.0.2.1", "255.255.255.255"};
    QTest::newRow("wine") << "tests/golden/wine/all_win_infos.txt" << QByteArrayList {};
    QTest::newRow("workstation") << "tests/golden/workstation/all_win_infos.txt" << QByteArrayList {};
}

void AddressesTest::nothingInReports()
{
    QFETCH(QString, file);
    QFile report(QStringLiteral(PROJECT_DIR "/") + file);
    QVERIFY(report.open(QIODevice::ReadOnly));
    const QByteArray text = report.readAll();
    QByteArrayList certain;
    for (const AddressPlace &place : addressesIn(text)) {
        const QByteArray spelling = text.mid(int(place.begin), int(place.end - place.begin));
        if (place.isCertain && !certain.contains(spelling))
            certain.append(spelling);
    }
    QTEST(certain, "expected");
}

void AddressesTest::hostile_data()
{
    QTest::addColumn<QByteArray>("piece");
    QTest::addColumn<int>("atMost");
    QTest::newRow("colons") << QByteArray(":") << 0;
    QTest::newRow("hyphens") << QByteArray("-") << 0;
    QTest::newRow("percent") << QByteArray("%3A") << 0;
    QTest::newRow("digits") << QByteArray("0") << 0;
    QTest::newRow("prefix") << QByteArray("0x") << 0;
    QTest::newRow("groups") << QByteArray("1:") << 200000;
    QTest::newRow("numbers") << QByteArray("1.") << 200000;
    QTest::newRow("numbers and hyphens") << QByteArray("1-") << 200000;
    QTest::newRow("pairs") << QByteArray("00-") << 1;
    QTest::newRow("bytes") << QByteArray("00 ") << 0;
    QTest::newRow("gaps") << QByteArray("1::") << 500000;
    QTest::newRow("groups of four") << QByteArray("0000.") << 1;
    QTest::newRow("percent-coded points") << QByteArray("1%2E") << 200000;
    QTest::newRow("addresses") << QByteArray("192.0.2.57 ") << 100000;
}

void AddressesTest::hostile()
{
    QFETCH(QByteArray, piece);
    QFETCH(int, atMost);
    const QByteArray text = piece.repeated((1 << 20) / piece.size());
    const std::vector<AddressPlace> places = addressesIn(text);
    QVERIFY(int(places.size()) <= atMost);
    std::size_t end = 0;
    for (const AddressPlace &place : places) {
        QVERIFY(place.begin >= end && place.end > place.begin);
        end = place.end;
    }
}

TEST_WITHOUT_APPLICATION(AddressesTest);
#include "tst_addresses.moc"
