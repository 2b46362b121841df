// SPDX-License-Identifier: MIT
#include <HeldFolder.h>

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

// A folder that one run at a time has.
class tst_HeldFolder : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_temporary;

    QString path() const { return m_temporary->filePath(QStringLiteral("a folder")); }

    static bool write(const QString& name)
    {
        QFile file(name);
        return file.open(QIODevice::WriteOnly) && file.write("x") == 1;
    }

private Q_SLOTS:
    void init() { m_temporary = std::make_unique<QTemporaryDir>(); }

    void oneAtATimeHasIt()
    {
        HeldFolder first;
        QVERIFY(first.make(path()));
        QCOMPARE(first.hold(path()), HeldFolder::Result::Held);
        QVERIFY(first.isHeld());
        HeldFolder second;
        QVERIFY(second.make(path()));
        QCOMPARE(second.hold(path()), HeldFolder::Result::InUse);
        QVERIFY(!second.isHeld());
        first.release();
        QCOMPARE(second.hold(path()), HeldFolder::Result::Held);
    }

    void whileItIsHeldFilesComeAndGo()
    {
        HeldFolder folder;
        QVERIFY(folder.make(path()));
        QCOMPARE(folder.hold(path()), HeldFolder::Result::Held);
        const QDir inside(path());
        QVERIFY(write(inside.filePath(QStringLiteral("file"))));
        QVERIFY(inside.mkdir(QStringLiteral("inner")));
        QCOMPARE(inside.entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name),
                 (QStringList{QStringLiteral("file"), QStringLiteral("inner")}));
        QVERIFY(inside.rmdir(QStringLiteral("inner")));
        QVERIFY(QFile::remove(inside.filePath(QStringLiteral("file"))));
        QVERIFY(inside.entryList(QDir::AllEntries | QDir::NoDotAndDotDot).isEmpty());
    }

    void onlyAnEmptyFolderIsRemoved()
    {
        HeldFolder folder;
        QVERIFY(folder.make(path()));
        QCOMPARE(folder.hold(path()), HeldFolder::Result::Held);
        QVERIFY(write(path() + QStringLiteral("/file")));
        folder.remove();
        QVERIFY(QFile::exists(path() + QStringLiteral("/file")));
        QCOMPARE(folder.hold(path()), HeldFolder::Result::Held);
        QVERIFY(QFile::remove(path() + QStringLiteral("/file")));
        folder.remove();
        QVERIFY(!QFile::exists(path()));
        QVERIFY(!folder.isHeld());
        QCOMPARE(folder.hold(path()), HeldFolder::Result::Missing);
    }

    void fileInItsPlaceIsTold()
    {
        QVERIFY(write(path()));
        HeldFolder folder;
        QVERIFY(folder.make(path()));
        QCOMPARE(folder.hold(path()), HeldFolder::Result::OtherKind);
    }
};

QTEST_GUILESS_MAIN(tst_HeldFolder)
#include "tst_HeldFolder.moc"
