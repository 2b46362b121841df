// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QStringList>
#include <QVector>
#include <QtTest>

/// Machines files with the one verdict that all programs of the suite give: the reader's own test,
/// kestdesk's and the components' walk the same rows.
struct MachinesCase
{
    QByteArray name;
    QByteArray content;
    bool isValid;
    QByteArray entries;  ///< "LINE HOST COUNT", with ", " between them
    QByteArray findings; ///< "LINE SEVERITY [TEXT] REASON", with "; " between them

    /// Of all entries.
    int processes() const
    {
        int result = 0;
        const QStringList each = QString::fromUtf8(entries).split(QStringLiteral(", "));
        for (const QString& entry : each) {
            result += entry.section(QLatin1Char(' '), 2).toInt();
        }
        return result;
    }
};

/// Lines of 250 bytes for so many hosts, and their entries.
inline MachinesCase longMachines(const char* name, int count, const char* findings)
{
    MachinesCase result{name, {}, QByteArray(findings).isEmpty(), {}, findings};
    for (int i = 1; i <= count; ++i) {
        const QByteArray line = QByteArray::number(i);
        const QByteArray host = line.rightJustified(247, 'n');
        result.content += host + ":1\n";
        result.entries += (i == 1 ? "" : ", ") + line + ' ' + host + " 1";
    }
    return result;
}

// A table, whose quotation marks moc cannot read in raw strings.
// NOLINTBEGIN(readability-function-size, modernize-raw-string-literal)
inline const QVector<MachinesCase>& machinesCases()
{
    const QByteArray longest(255, 'a');
    const QByteArray sixty(60, 'a');
    // clang-format off
    static const QVector<MachinesCase> rows = {
        {"host and count",        "node1:4\n",                      true,  "1 node1 4",            ""},
        {"host alone",            "node1\n",                        true,  "1 node1 1",            ""},
        {"empty count",           "node1:\n",                       true,  "1 node1 1",            ""},
        {"blank count",           "node1: \t\n",                    true,  "1 node1 1",            ""},
        {"no last line end",      "node1:2\nnode2:3",               true,  "1 node1 2, 2 node2 3", ""},
        {"without counts",        "node2\nnode3:\n",                true,  "1 node2 1, 2 node3 1", ""},
        {"blank lines",           "\n  \n\t\nnode1\n\n",            true,  "4 node1 1",            ""},
        {"comments",              "#a:1\nnode1:2 # b:3\n # c\n",    true,  "2 node1 2",            ""},
        {"comment at once",       "a:2#b\n",                        true,  "1 a 2",                ""},
        {"comment for a count",   "a:#2\n",                         true,  "1 a 1",                ""},
        {"comment of odd bytes",  "a:2 # \xff\x1b[2J\n",            true,  "1 a 2",                ""},
        {"blanks around",         "  node1:2\t \n",                 true,  "1 node1 2",            ""},
        {"blanks and comments",   "# first\n\n  \n a:2 # why\n\tb : 3\t\n#c:9\n", true, "4 a 2, 5 b 3", ""},
        {"blanks at the colon",   "a: 2\nb :3\nc\t:\t4\n",          true,  "1 a 2, 2 b 3, 3 c 4",  ""},
        {"all characters",        "Az09._-x:1\n",                   true,  "1 Az09._-x 1",         ""},
        {"name with a domain",    "A-z_0.example-1.org:1\n",        true,  "1 A-z_0.example-1.org 1", ""},
        {"address",               "10.0.0.1:2\n",                   true,  "1 10.0.0.1 2",         ""},
        {"leading zeros",         "a:007\n",                        true,  "1 a 7",                ""},
        {"many zeros",            "a:000000000000000000002\n",      true,  "1 a 2",                ""},
        {"longest name",          longest,                          true,  "1 " + longest + " 1",  ""},
        {"largest count",         "a:4096\n",                       true,  "1 a 4096",             ""},
        {"largest total",         "a:4000\nb:96\n",                 true,  "1 a 4000, 2 b 96",     ""},
        longMachines("longest list", 400, ""),

        {"Windows",               "a:1\r\n\r\nb:2\r\n",             true,  "1 a 1, 3 b 2",         "1 note [] lines end as on Windows, with a carriage return"},
        {"byte order mark",       "\xef\xbb\xbf" "a:1\n",           true,  "1 a 1",                "1 warning [] the file begins with a byte order mark, which other programs take for a part of the host"},
        {"mark and Windows",      "\xef\xbb\xbfnode1:4\r\n\r\nnode2\r\n", true, "1 node1 4, 3 node2 1", "1 warning [] the file begins with a byte order mark, which other programs take for a part of the host; 1 note [] lines end as on Windows, with a carriage return"},
        {"twice",                 "a:1\nb:2\na:3\n",                true,  "1 a 1, 2 b 2, 3 a 3",  "3 warning [a:3] the host stands in line 1 already"},
        {"twice, in capitals",    "a:1\nb\nA:2\n",                  true,  "1 a 1, 2 b 1, 3 A 2",  "3 warning [A:2] the host stands in line 1 already"},
        {"three times",           "a\nA:2\na # c\n",                true,  "1 a 1, 2 A 2, 3 a 1",  "2 warning [A:2] the host stands in line 1 already; 3 warning [a] the host stands in line 1 already"},
        {"IPv6",                  "[fe80::1]:2\n",                  true,  "1 [fe80::1] 2",        "1 warning [[fe80::1]:2] the processes of an address in brackets are left out of the total, and a parallel run needs a name instead"},
        {"IPv6 without a count",  "[::2]\n",                        true,  "1 [::2] 1",            "1 warning [[::2]] the processes of an address in brackets are left out of the total, and a parallel run needs a name instead"},
        {"IPv6 with blanks",      " [::1] : 2\n",                   true,  "1 [::1] 2",            "1 warning [[::1] : 2] the processes of an address in brackets are left out of the total, and a parallel run needs a name instead"},
        {"IPv6 with IPv4",        "[::FFFF:10.0.0.1]:\n",           true,  "1 [::FFFF:10.0.0.1] 1", "1 warning [[::FFFF:10.0.0.1]:] the processes of an address in brackets are left out of the total, and a parallel run needs a name instead"},
        {"addresses",             "10.0.0.1:2\n[fe80::1]:3\n[::1]\n", true, "1 10.0.0.1 2, 2 [fe80::1] 3, 3 [::1] 1", "2 warning [[fe80::1]:3] the processes of an address in brackets are left out of the total, and a parallel run needs a name instead; 3 warning [[::1]] the processes of an address in brackets are left out of the total, and a parallel run needs a name instead"},

        {"word as count",         "a\nb:many\n",                    false, "1 a 1",                "2 error [b:many] \"many\" is no number of processes"},
        {"plus",                  "a:+2\n",                         false, "",                     "1 error [a:+2] \"+2\" is no number of processes"},
        {"other digits",          "a:\xd9\xa3\n",                   false, "",                     "1 error [a:\xd9\xa3] \"\xd9\xa3\" is no number of processes"},
        {"fraction",              "a:1.5\n",                        false, "",                     "1 error [a:1.5] \"1.5\" is no number of processes"},
        {"hexadecimal",           "a:0x10\n",                       false, "",                     "1 error [a:0x10] \"0x10\" is no number of processes"},
        {"two numbers",           "a:1 2\n",                        false, "",                     "1 error [a:1 2] \"1 2\" is no number of processes"},
        {"minus alone",           "a:-\n",                          false, "",                     "1 error [a:-] \"-\" is no number of processes"},
        {"lone carriage return",  "a:1\rb\n",                       false, "",                     "1 error [a:1\rb] \"1\rb\" is no number of processes"},
        {"zero",                  "a:0\n",                          false, "",                     "1 error [a:0] the number of processes is 0"},
        {"zeros",                 "a:00\n",                         false, "",                     "1 error [a:00] the number of processes is 0"},
        {"IPv6 with zero",        "[::1]:0\n",                      false, "",                     "1 error [[::1]:0] the number of processes is 0"},
        {"negative",              "a:-3\n",                         false, "",                     "1 error [a:-3] the number of processes is negative"},
        {"negative zero",         "a:-0\n",                         false, "",                     "1 error [a:-0] the number of processes is negative"},
        {"very negative",         "a:-99999999999\n",               false, "",                     "1 error [a:-99999999999] the number of processes is negative"},
        {"too many",              "a:4097\n",                       false, "",                     "1 error [a:4097] more than 4096 processes on one host"},
        {"beyond an integer",     "a:99999999999\n",                false, "",                     "1 error [a:99999999999] more than 4096 processes on one host"},
        {"beyond all integers",   "a:99999999999999999999\n",       false, "",                     "1 error [a:99999999999999999999] more than 4096 processes on one host"},
        {"two counts",            "a:1:2\n",                        false, "",                     "1 error [a:1:2] more than one colon; an address of IPv6 stands in brackets"},
        {"two colons",            "a::\n",                          false, "",                     "1 error [a::] more than one colon; an address of IPv6 stands in brackets"},
        {"bare IPv6",             "fe80::1\n",                      false, "",                     "1 error [fe80::1] more than one colon; an address of IPv6 stands in brackets"},

        {"option",                "-oProxyCommand=x\n",             false, "",                     "1 error [-oProxyCommand=x] the name of a host does not begin with \"-\""},
        {"option with a count",   "-oProxyCommand=x:1\n",           false, "",                     "1 error [-oProxyCommand=x:1] the name of a host does not begin with \"-\""},
        {"short option",          "-x\n",                           false, "",                     "1 error [-x] the name of a host does not begin with \"-\""},
        {"option in brackets",    "[-o]:1\n",                       false, "",                     "1 error [[-o]:1] the name of a host does not begin with \"-\""},
        {"option as address",     "[-::1]:1\n",                     false, "",                     "1 error [[-::1]:1] the name of a host does not begin with \"-\""},
        {"shell command",         "$(reboot)\n",                    false, "",                     "1 error [$(reboot)] \"$\" is not allowed in the name of a host"},
        {"back quotes",           "`x`:1\n",                        false, "",                     "1 error [`x`:1] \"`\" is not allowed in the name of a host"},
        {"semicolon",             "a;b:2\n",                        false, "",                     "1 error [a;b:2] \";\" is not allowed in the name of a host"},
        {"pipe",                  "a|b\n",                          false, "",                     "1 error [a|b] \"|\" is not allowed in the name of a host"},
        {"slash",                 "a/b:1\n",                        false, "",                     "1 error [a/b:1] \"/\" is not allowed in the name of a host"},
        {"quotes",                "a\"b:1\n",                       false, "",                     "1 error [a\"b:1] \"\"\" is not allowed in the name of a host"},
        {"apostrophe",            "a'b:1\n",                        false, "",                     "1 error [a'b:1] \"'\" is not allowed in the name of a host"},
        {"ampersand",             "a&b:1\n",                        false, "",                     "1 error [a&b:1] \"&\" is not allowed in the name of a host"},
        {"comma",                 "a,b:1\n",                        false, "",                     "1 error [a,b:1] \",\" is not allowed in the name of a host"},
        {"backslash",             "a\\b:1\n",                       false, "",                     "1 error [a\\b:1] \"\\\" is not allowed in the name of a host"},
        {"asterisk",              "a*:1\n",                         false, "",                     "1 error [a*:1] \"*\" is not allowed in the name of a host"},
        {"user",                  "me@a:1\n",                       false, "",                     "1 error [me@a:1] \"@\" is not allowed in the name of a host"},
        {"blank inside",          "a b:2\n",                        false, "",                     "1 error [a b:2] a blank is not allowed in the name of a host"},
        {"blank of another kind", "a\xc2\xa0:2\n",                  false, "",                     "1 error [a\xc2\xa0:2] \"\xc2\xa0\" is not allowed in the name of a host"},
        {"control character",     "a\x1b[2J\n",                     false, "",                     "1 error [a\x1b[2J] the control character 27 is not allowed in the name of a host"},
        {"delete character",      "a\x7f\n",                        false, "",                     "1 error [a\x7f] the control character 127 is not allowed in the name of a host"},
        {"other letters",         "h\xc3\xb6st\n",                  false, "",                     "1 error [h\xc3\xb6st] \"\xc3\xb6\" is not allowed in the name of a host"},
        {"beyond the plane",      "\xf0\x9f\x98\x80\n",             false, "",                     "1 error [\xf0\x9f\x98\x80] \"\xf0\x9f\x98\x80\" is not allowed in the name of a host"},
        {"mark at the end",       "a\xef\xbb\xbf\n",                false, "",                     "1 error [a\xef\xbb\xbf] a byte order mark is not allowed in the name of a host"},
        {"mark inside a name",    "a\xef\xbb\xbf" "b\n",            false, "",                     "1 error [a\xef\xbb\xbf" "b] a byte order mark is not allowed in the name of a host"},
        {"mark in line 2",        "a\n\xef\xbb\xbf" "b\n",          false, "1 a 1",                "2 error [b] a byte order mark is not allowed in the name of a host"},
        {"count alone",           ":4\n",                           false, "",                     "1 error [:4] the name of the host is missing"},
        {"empty brackets",        "[]:4\n",                         false, "",                     "1 error [[]:4] the name of the host is missing"},
        {"name in brackets",      "[node1]\n",                      false, "",                     "1 error [[node1]] brackets are for an address of IPv6"},
        {"IPv4 in brackets",      "[10.0.0.1]:2\n",                 false, "",                     "1 error [[10.0.0.1]:2] brackets are for an address of IPv6"},
        {"count in brackets",     "[node1:4]\n",                    false, "",                     "1 error [[node1:4]] \"n\" is not allowed in an address of IPv6"},
        {"one colon in brackets", "[a:4]\n",                        false, "",                     "1 error [[a:4]] an address of IPv6 has more than one colon"},
        {"blanks in brackets",    "[ ::1 ]:2\n",                    false, "",                     "1 error [[ ::1 ]:2] a blank is not allowed in an address of IPv6"},
        {"IPv6 with a zone",      "[fe80::1%eth0]\n",               false, "",                     "1 error [[fe80::1%eth0]] \"%\" is not allowed in an address of IPv6"},
        {"open bracket",          "[::1\n",                         false, "",                     "1 error [[::1] \"[\" is not allowed in the name of a host"},
        {"text behind bracket",   "[::1]x:2\n",                     false, "",                     "1 error [[::1]x:2] \"[\" is not allowed in the name of a host"},
        {"count without a colon", "[::1]2\n",                       false, "",                     "1 error [[::1]2] \"[\" is not allowed in the name of a host"},
        {"name too long",         longest + 'a',                    false, "",                     "1 error [" + sixty + "...] the name of the host is longer than 255 characters"},
        {"as long as is shown",   sixty.left(59) + '!',             false, "",                     "1 error [" + sixty.left(59) + "!] \"!\" is not allowed in the name of a host"},
        {"several",               ":1\nb\nc:0",                     false, "2 b 1",                "1 error [:1] the name of the host is missing; 3 error [c:0] the number of processes is 0"},

        {"UTF-16",                QByteArray("\xff\xfe" "a\0\n\0", 6), false, "",                  "1 error [] the file is in UTF-16; save it as plain text"},
        {"UTF-16, other order",   QByteArray("\xfe\xff\0a", 4),     false, "",                     "1 error [] the file is in UTF-16; save it as plain text"},
        {"UTF-16 without a mark", QByteArray("a\0\n\0", 4),         false, "",                     "1 error [] a NUL byte, so this is not a text file"},
        {"NUL",                   QByteArray("a\nb\0c\nd:0\n", 10), false, "",                     "2 error [] a NUL byte, so this is not a text file"},
        {"NUL in a comment",      QByteArray("a\n# b\0\n", 7),      false, "",                     "2 error [] a NUL byte, so this is not a text file"},
        {"empty",                 "",                               false, "",                     "0 error [] it names no host"},
        {"only comments",         "# a:1\n\n#b\n",                  false, "",                     "0 error [] it names no host"},
        {"mark alone",            "\xef\xbb\xbf",                   false, "",                     "1 warning [] the file begins with a byte order mark, which other programs take for a part of the host; 0 error [] it names no host"},
        {"total too large",       "a:4096\nb:1\n",                  false, "1 a 4096, 2 b 1",      "0 error [] it counts 4097 processes and the limit is 4096"},
        {"one host too often",    "a:4096\na:1\n",                  false, "1 a 4096, 2 a 1",      "2 warning [a:1] the host stands in line 1 already; 0 error [] it counts 4097 processes and the limit is 4096"},
        {"total and a line",      "a:4096\nb:1\nc:x\n",             false, "1 a 4096, 2 b 1",      "3 error [c:x] \"x\" is no number of processes; 0 error [] it counts 4097 processes and the limit is 4096"},
        longMachines("list too long", 401, "0 error [] it has names of more than 100000 bytes"),
    };
    // clang-format on
    return rows;
}
// NOLINTEND(readability-function-size, modernize-raw-string-literal)

/// A row of the test for each of them, with its index in the column "row".
inline void addMachinesCases()
{
    QTest::addColumn<int>("row");
    for (int i = 0; i < machinesCases().size(); ++i) {
        QTest::newRow(machinesCases().at(i).name.constData()) << i;
    }
}
