// Passwords, tokens and keys in every form, and what only resembles one. All are invented, and written in pieces:
// programs that search repositories for secrets would report them otherwise.

#include "redaction/secrets.h"
#include "test_main.h"

#include <QtCore/QFile>

using namespace velkor::Reports;

class SecretsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void found_data();
    void found();
    void random_data();
    void random();
    void nothing_data();
    void nothing();
    void redactedTwice_data();
    void redactedTwice();
    void nothingInReports_data();
    void nothingInReports();
    void tokenAtEveryOffset();
    void hostile_data();
    void hostile();
};

namespace {

std::vector<SecretPlace> secretsIn(const QByteArray &text, SecretContext context)
{
    return findSecrets({text.constData(), std::size_t(text.size())}, context);
}

QByteArray textOf(const QByteArray &text, const SecretPlace &place)
{
    return text.mid(int(place.begin), int(place.end - place.begin));
}

/// The secrets with "|" between them.
QByteArray described(const QByteArray &text, SecretContext context)
{
    QByteArrayList list;
    for (const SecretPlace &place : secretsIn(text, context))
        list.append(textOf(text, place));
    return list.join('|');
}

QByteArray replaced(QByteArray text, SecretContext context)
{
    const std::vector<SecretPlace> places = secretsIn(text, context);
    for (auto place = places.rbegin(); place != places.rend(); ++place)
        text.replace(int(place->begin), int(place->end - place->begin), "secret-" + QByteArray::number(int(places.rend() - place)));
    return text;
}

/// \a before the secret and \a after it.
void row(const char *name, const QByteArray &before, const QByteArray &secret, const QByteArray &after = {})
{
    QTest::newRow(name) << before + secret + after << secret;
}

void textRow(const char *name, const QByteArray &text, const QByteArray &expected)
{
    QTest::newRow(name) << text << expected;
}

void textRow(const QByteArray &text)
{
    QTest::newRow(text.isEmpty() ? "(empty)" : text.left(60).constData()) << text;
}

/// \a length invented characters with digits, capitals and small letters.
QByteArray filler(int length)
{
    return QByteArray("Inv3nt3dF0rT3st5").repeated(length / 16 + 1).left(length);
}

QByteArray capitals(int length)
{
    return QByteArray("INV3NT3DF0RT35T5").repeated(length / 16 + 1).left(length);
}

QByteArray hex(int length)
{
    return QByteArray("0d15c0ded1ce5afe").repeated(length / 16 + 1).left(length);
}

const QByteArray invented = "not-a-Pa55word!";

void addressRows()
{
    row("URL", "https://anna:", invented, "@example.net/a?b");
    row("database", "postgres://anna:", "a@b:c", "@example.net:5432/db");
    row("only a password", "redis://:", invented, "@localhost:6379/0");
    row("AMQP", "amqps://guest:", "guess", "@example.net/vhost");
    row("several hosts", "mongodb+srv://anna:", "gu%40ess", "@a.example,b.example/?ssl=true");
    row("password with a slash", "ftp://anna:", "gu/ess", "@example.net/");
    row("password with a question mark", "ftp://anna:", "gu?ess", "@example.net/");
    row("a generated user", "https://", hex(32), "@errors.example.net/1");
    row("in quotes", "proxy='http://anna:", "guess", "@proxy:8080'");
    row("percent-coded address", "url=http%3A%2F%2Fanna%3A", "guess", "%40proxy%3A8080");
    textRow("two addresses", "amqp://a:first@h,amqp://b:second@i", "first|second");
    row("JDBC of Oracle", "jdbc:oracle:thin:scott/", "guess", "@//db.example:1521/x");
}

void assignmentRows()
{
    for (const char *name : {"password", "PASSWORD", "Passwd", "pwd", "pass", "secret", "token", "api_key", "api-key", "apikey",
                             "apiKey", "APIKey", "API_KEY", "X-Api-Key", "access_key", "AccountKey", "SharedAccessKey",
                             "client_secret", "clientSecret", "credential", "credentials", "private_key", "license_key",
                             "LicenceKey", "DB_PASSWORD", "MYSQL_PWD", "PGPASSWORD", "dbPass", "GITHUB_TOKEN", "authToken",
                             "accessToken", "AWS_SECRET_ACCESS_KEY", "SECRET_KEY_BASE", "password2", "Kennwort", "auth",
                             "TOKEN_PROD", "passphrase", "product_key", "encryption-key", "my.db.password", "psk"})
        row(name, QByteArray(name) + '=', "guess-Me7");
    row("colon", "password: ", "guess");
    row("several blanks", "password \t =  ", "guess", " more");
    row("arrow", ":password => \"", "guess", "\",");
    row("assignment of Pascal", "password := '", "guess", "'");
    row("JSON", "{\"password\": \"", "gu ess", "\", \"user\": \"anna\"}");
    row("JSON with an escaped quote", "{\"password\":\"", "gu\\\"ess", "\"}");
    row("JSON in JSON", "{\\\"token\\\":\\\"", "guess", "\\\",\\\"a\\\":1}");
    row("Python", "d['secret'] = '", "guess", "'");
    row("registry file", "\"Password\"=\"", "guess", "\"");
    row("XML attribute", "<add key=\"Password\" value=\"", "guess", "\" />");
    row("XML element", "<Password>", "guess", "</Password>");
    row("quotes around the assignment", "set \"PASSWORD=", "gu ess", "\" && run");
    row("option", "run --password=", "guess", " --user=anna");
    row("option and blank", "run --password ", "guess", " --user anna");
    row("option, quotes", "run -Password \"", "gu ess", "\" -User anna");
    row("option with a slash and a colon", "net /user:anna /pass:", "guess", " /x");
    row("option with a slash and a blank", "run /password ", "guess");
    row("property of Java", "java -Dpassword=", "guess", " -jar a.jar");
    row("user and password", "curl -u anna:", "guess", " http://example.net");
    row("query", "https://example.net/a?x=1&token=", "guess", "&y=2");
    row("signature in a query", "https://example.net/a?sv=1&sig=", "a%2Bb%3D", "&se=2");
    row("key in a query", "https://example.net/?key=", filler(20), "&y=2");
    row("percent-coded query", "a%3Fpassword%3D", "guess", "%26b%3D1");
    row("sentence", "The password: ", "guess", ", as always.");
    row("brackets", "(password=", "guess", ")");
    row("brackets inside", "password=", "gu(es)s");
    row("comma inside", "password=", "gu,ess&more");
    row("at the end of a list", "abc,password=", "guess", ",ssl=True");
    row("blanks in the name", "API key: ", "guess");
    row("words", "passphrase: ", "correct horse battery staple");
    row("cookie", "Cookie: ", "a=b; c=d");
    row("PWD of a connection", "Uid=anna;Pwd=", "guess", ";");
    textRow("two", "password=first user=anna token=second", "first|second");
    textRow("lines", "password=first\r\ntoken=second\n", "first|second");
}

void connectionRows()
{
    row("ADO", "Data Source=a;User ID=sa;Password=", "gu=ess", ";Encrypt=True");
    row("ODBC", "Driver={SQL Server};UID=sa;PWD={", "gu;ess", "};");
    row("JDBC", "jdbc:mysql://h/db?user=a&password=", "guess", "&x=1");
    row("JDBC of a server", "jdbc:sqlserver://h:1433;user=sa;password=", "guess", ";x=1");
    row("Azure storage", "AccountName=a;AccountKey=", filler(30) + "+/a==", ";EndpointSuffix=x");
    row("Azure bus", "SharedAccessKeyName=Root;SharedAccessKey=", filler(43) + '=');
    row("Redis", "h:6380,password=", "guess=", ",ssl=True,abortConnect=False");
    row("libpq", "host=h user=a password=", "guess", " dbname=b");
}

void tokenRows()
{
    row("AWS", "id ", QByteArray("AK") + "IA" + capitals(16));
    row("AWS, temporary", "id ", QByteArray("AS") + "IA" + capitals(16), ".");
    for (const char *prefix : {"p", "o", "u", "s", "r"})
        row((QByteArray("GitHub ") + prefix).constData(), "x ", QByteArray("gh") + prefix + '_' + filler(36), " y");
    row("GitHub, fine-grained", "", QByteArray("github") + "_pat_" + filler(22) + '_' + filler(59));
    row("GitLab", "", QByteArray("gl") + "pat-" + filler(20));
    row("Slack", "", QByteArray("xo") + "xb-" + "123456789012-" + filler(24));
    row("Google", "k:", QByteArray("AI") + "za" + filler(35));
    row("Google, access", "", QByteArray("ya") + "29." + filler(60));
    row("Stripe", "", QByteArray("sk") + "_live_" + filler(24));
    row("Stripe, restricted", "", QByteArray("rk") + "_live_" + filler(24));
    row("Stripe, test", "", QByteArray("sk") + "_test_" + filler(24));
    row("npm", "", QByteArray("np") + "m_" + filler(36));
    row("PyPI", "", QByteArray("py") + "pi-A" + filler(60));
    row("SendGrid", "", QByteArray("S") + "G." + filler(22) + '.' + filler(43));
    row("Hugging Face", "", QByteArray("h") + "f_" + filler(34));
    row("DigitalOcean", "", QByteArray("do") + "p_v1_" + hex(64));
    row("OpenAI", "", QByteArray("s") + "k-" + filler(48));
    row("OpenAI, project", "", QByteArray("s") + "k-proj-" + filler(48));
    row("Anthropic", "", QByteArray("s") + "k-ant-api03-" + filler(60));
    row("Telegram", "bot ", QByteArray("123456789") + ":AA" + filler(33));
    row("Slack webhook", "https://hooks.slack.com/services/T0AAAAAAA/B0AAAAAAA/", filler(24));
    row("Discord webhook", "https://discord.com/api/webhooks/1234567890/", filler(60));
    row("three parts", "", QByteArray("MTA") + "xInv3nt3dF0rT3st5QaZw" + ".AbC1d2." + filler(30));
    row("JSON web token", "t ", QByteArray("ey") + "JhbGciOiJub25lIn0." + "eyJzdWIiOiJ0ZXN0In0." + filler(20), " z");
    row("JSON web token after a word", "jwt_", QByteArray("ey") + "JhbGciOiJub25lIn0." + "eyJzdWIiOiJ0ZXN0In0", ".");
    row("bearer", "Authorization: Bearer ", "gue55-me.now", "\"");
    row("bearer alone", "use bearer ", "gue55-me.now");
    row("basic", "Authorization: Basic ", QByteArray("anna:guess").toBase64());
    row("basic alone", "use Basic ", QByteArray("anna:guess").toBase64());
    row("digest", "Authorization: Digest ", "username=\"anna\", response=\"0a\"");
    row("SSH", "ssh-rsa ", QByteArray("AAAA") + "B3NzaC1yc2EAAAADAQABAAABgQ" + filler(40) + "+/x==", " anna@host");
    row("SSH of 25519", "ssh-ed25519 ", QByteArray("AAAA") + "C3NzaC1lZDI1NTE5AAAAI" + filler(40), " anna@host");
    row("Windows key", "key ", "BCDFG-HJKMP-QRTVW-XY234-6789B", " end");
    row("licence key", "", "AB12-CD34-EF56-GH78");
    row("BitLocker", "", "123456-234567-345678-456789-567890-678901-789012-890123");
}

void blockRows()
{
    const QByteArray begin = QByteArray("-----BEG") + "IN RSA PRIVATE KEY-----";
    const QByteArray end = QByteArray("-----E") + "ND RSA PRIVATE KEY-----";
    textRow("key block", "a\n" + begin + "\nMIIEinvented+/A\nabc=\n" + end + "\nb c", "MIIEinvented+/A|abc=");
    textRow("key block with carriage returns", begin + "\r\nMIIE\r\nabc=\r\n" + end, "MIIE|abc=");
    textRow("indented", "  " + begin + "\n  MIIE\n  abc=\n  " + end, "MIIE|abc=");
    textRow("mail quotes", "> " + begin + "\n> MIIE\n> abc=\n> " + end, "MIIE|abc=");
    textRow("with headers", begin + "\nProc-Type: 4,ENCRYPTED\n\nMIIE\n" + end, "Proc-Type: 4,ENCRYPTED|MIIE");
    textRow("without an end", begin + "\nMIIE\nabc=\nA sentence.\n", "MIIE|abc=");
    textRow("no line after it", begin, "");
    textRow("in one line", "k='" + begin + "\\nMIIE\\nabc=\\n" + end + "\\n' x", "MIIE\\nabc=");
    textRow("in one line without an end", "\"" + begin + "\\nMIIE\\nabc=\" x", "MIIE\\nabc=");
    textRow("in one line with blanks", begin + " MIIE abc= " + end, "MIIE abc=");
    textRow("four hyphens", QByteArray("---- BEG") + "IN SSH2 PRIVATE KEY ----\nMIIE\n---- END SSH2 PRIVATE KEY ----", "MIIE");
    textRow("redacted before", begin + "\nsecret-1\nMIIE\n" + end, "MIIE");
}

void columns()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
}

} // namespace

void SecretsTest::found_data()
{
    columns();
    addressRows();
    assignmentRows();
    connectionRows();
    tokenRows();
    blockRows();
}

void SecretsTest::found()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    QCOMPARE(described(text, SecretContext::Fact), expected);
    QCOMPARE(described(text, SecretContext::Free), expected);
}

/// What looks random is a secret in free text only.
void SecretsTest::random_data()
{
    columns();
    row("hexadecimal", "a ", hex(32), " b");
    row("hexadecimal, capitals", "a ", hex(64).toUpper(), " b");
    row("base64", "a ", "wJa1rXUtnFEM/K7MDe+bPxRf1CYzInv3nt3dAbCd=", " b");
    row("letters and digits", "a ", "a8s7d6f5g4h3j2k1l0z9x8c7v6", " b");
}

void SecretsTest::random()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    QCOMPARE(described(text, SecretContext::Free), expected);
    QCOMPARE(described(text, SecretContext::Fact), QByteArray());
}

void SecretsTest::nothing_data()
{
    QTest::addColumn<QByteArray>("text");
    for (const char *text :
         {"", "password", "password=", "password = ", "password=\"\"", "password=%PASSWORD%", "password=${PASSWORD}",
          "password=$PASSWORD", "token: {{ token }}", "password=***", "password=<password>", "token=true", "secret: null",
          "password=secret-1", "password=secret-482193756012", "password: \"length-19\"", "secret-1: 5", "host-1:8080",
          "a, PublicKeyToken=31bf3856ad364e35, b", "PWD=/home/anna", "PWD=C:\\Users", "password_file=/etc/x", "TOKEN_URL=http://x",
          "TokenRing=yes, please", "Monkey=Affe", "HotKey=F5xyz", "key=value", "compass=north", "bypass=always", "http://example.net:8080/a@b",
          "http://anna@example.net/", "mailto:anna@example.net", "C:\\Users\\a:b", "std::token::x", "if (token == 1)", "token != abc",
          "Bearer of good news", "Visual Basic Express", "Basic authentication", "--token-file a.txt", "C:/pass word", "- password",
          "{4d36e972-e325-11ce-bfc1-08002be10318}", "00:00:5E:00:53:1A", "00-00-5E-00-53-1A", "2001:db8::1", "192.0.2.57",
          "10.0.19041.3636", "2024-01-02 03:04:05", "6-21-2006", "00330-50000-00000-AAOEM", "12345-oem-0000001-54321",
          "igdlh64.inf_amd64_x", "amd64_microsoft.vc80.crt_1fc8b3b9a1e18e3b_8.0.50727.9672_none_deadbeef",
          "Microsoft.Win32_8wekyb3d8bbwe", "PCI\\VEN_8086&DEV_1912&SUBSYS_079F1028&REV_06", "GL_ARB_texture_compression_rgtc GL_EXT_abgr",
          "Disk&Ven_Samsung&Prod_SSD_860_EVO_500GB", "NVMe SAMSUNG MZVLB256", "disk-drive-number-1234567", "sk-", "ghp_", "eyJ",
          "task-scheduler-engine-2024", "https://hooks.slack.com/", "------------------------", "================"})
        textRow(text);
}

void SecretsTest::nothing()
{
    QFETCH(QByteArray, text);
    QCOMPARE(described(text, SecretContext::Fact), QByteArray());
    QCOMPARE(described(text, SecretContext::Free), QByteArray());
}

void SecretsTest::redactedTwice_data()
{
    found_data();
}

void SecretsTest::redactedTwice()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    const QByteArray once = replaced(text, SecretContext::Free);
    QCOMPARE(replaced(once, SecretContext::Free), once);
    QCOMPARE(once == text, expected.isEmpty());
}

void SecretsTest::nothingInReports_data()
{
    QTest::addColumn<QString>("file");
    for (const char *file : {"docs/example-report.txt", "tests/reports/data/workstation.txt", "tests/golden/wine/all_win_infos.txt",
                             "tests/golden/workstation/all_win_infos.txt", "tests/golden/no_answers.txt"})
        QTest::newRow(file) << file;
}

void SecretsTest::nothingInReports()
{
    QFETCH(QString, file);
    QFile report(QStringLiteral(PROJECT_DIR "/") + file);
    QVERIFY(report.open(QIODevice::ReadOnly));
    const QByteArray text = report.readAll();
    QVERIFY(text.size() > 100);
    QCOMPARE(described(text, SecretContext::Fact), QByteArray());
}

void SecretsTest::tokenAtEveryOffset()
{
    const QByteArray token = QByteArray("AK") + "IA" + capitals(16);
    for (int before = 0; before < 20; ++before) {
        for (int after = 0; after < 20; ++after)
            QCOMPARE(described(QByteArray(before, ' ') + token + QByteArray(after, '.'), SecretContext::Fact), token);
    }
}

void SecretsTest::hostile_data()
{
    QTest::addColumn<QByteArray>("piece");
    for (const char *piece : {":", "-", "=", "a=", "a:", "eyJ", "eyJaaaaaaaaaaaaaaa.", "0x", "password=", "password= ", "pwd={", "pass=<",
                              "key=", "token=%", "://", "a://a:", "a://a:a/", "a:b@", "--password ", "-u ", "-----BEGIN ", "-----BEGIN A-----",
                              "-----BEGIN A-----\n", "-----BEGIN A-----\na\n", "sk-", "sk-a-", "AKIA", "AAAAB3NzaC1", "SG.aaaaaaaaaaaaaaaaaaa.",
                              "aaaaaaaaaaaaaaaaaaaaaaaa.aaaaaa.", "ABCD-", "1234-", "/aaaaaaaaaaaaaaaaaaaa", "bearer ", "basic ", "Basic a",
                              "<password>", "password='", "password\"", "cookie:", "passphrase: a", "%3D", "%3A%2F%2F", "value=\"", "password=)",
                              "a0B/", "0", "a", "password=,a", "thin:", "auth=/", "pwd=/"})
        textRow(piece);
}

void SecretsTest::hostile()
{
    QFETCH(QByteArray, piece);
    const QByteArray text = piece.repeated((1 << 20) / piece.size());
    for (const SecretContext context : {SecretContext::Fact, SecretContext::Free}) {
        std::size_t end = 0;
        for (const SecretPlace &place : secretsIn(text, context)) {
            QVERIFY(place.begin >= end && place.end > place.begin && place.end <= std::size_t(text.size()));
            end = place.end;
        }
    }
}

TEST_WITHOUT_APPLICATION(SecretsTest);
#include "tst_secrets.moc"
