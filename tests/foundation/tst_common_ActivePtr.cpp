// SPDX-License-Identifier: MIT
#include <common_ActivePtr.h>
#include <common_AutoCounter.h>

#include <QtTest>

#include <type_traits>
#include <utility>

namespace {

class Counted
{
public:
    Counted() { ++s_alive; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    virtual ~Counted() { --s_alive; }

    void reference() { m_count.increment(); }
    void dereference() { m_count.decrement(); }
    int getRefCount() const { return m_count.value(); }

    int number = 7;
    static int s_alive;

private:
    common_AutoCounter m_count;
};

int Counted::s_alive = 0;

class Special : public Counted
{};

// Looks at the pointer that is letting go of it.
class Looking : public Counted
{
public:
    explicit Looking(common_ActivePtr<Counted>& holder) : m_holder(holder) {}
    ~Looking() override { s_holderWasNull = m_holder.isNull(); }
    static bool s_holderWasNull;

private:
    common_ActivePtr<Counted>& m_holder;
};

bool Looking::s_holderWasNull = false;

using Pointer = common_ActivePtr<Counted>;

static_assert(!std::is_convertible<Pointer, bool>::value, "bool only where it is asked for");
static_assert(std::is_nothrow_move_constructible<Pointer>::value, "containers move it");
static_assert(!std::is_convertible<Pointer, common_ActivePtr<Special>>::value, "no downcast");
static_assert(!std::is_convertible<common_ActivePtr<const Counted>, Pointer>::value, "stays const");

} // namespace

class tst_common_ActivePtr : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(Counted::s_alive, 0); }

    void isNullByDefault()
    {
        const Pointer pointer;
        QVERIFY(pointer.isNull());
        QVERIFY(!pointer);
        QVERIFY(pointer == nullptr);
        QCOMPARE(pointer.get(), static_cast<Counted*>(nullptr));
    }

    void holdsAConstantObject()
    {
        common_ActivePtr<const Counted> pointer(new Counted);
        QCOMPARE(pointer->getRefCount(), 1);
        const Pointer changeable(new Special);
        pointer = changeable;
        QCOMPARE(Counted::s_alive, 1);
        QCOMPARE(changeable->getRefCount(), 2);
        QCOMPARE(pointer->number, 7);
    }

    void constructionFromARawPointerTakesAReference()
    {
        const Pointer pointer(new Counted);
        QCOMPARE(pointer->getRefCount(), 1);
        QVERIFY(!pointer.isNull());
        QVERIFY(bool(pointer));
        QCOMPARE((*pointer).number, 7);
    }

    void lastPointerDeletes()
    {
        Pointer first(new Counted);
        {
            const Pointer second = first; // NOLINT(performance-unnecessary-copy-initialization)
            QCOMPARE(first->getRefCount(), 2);
        }
        QCOMPARE(first->getRefCount(), 1);
        QCOMPARE(Counted::s_alive, 1);
        first.reset();
        QVERIFY(first.isNull());
        QCOMPARE(Counted::s_alive, 0);
    }

    void moveTakesTheReferenceOver()
    {
        Pointer source(new Counted);
        const Pointer target = std::move(source);
        QCOMPARE(target->getRefCount(), 1);
        QVERIFY(source.isNull()); // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move):
                                  // that is the promise
    }

    void assignmentLetsGoOfTheOldObject()
    {
        Pointer pointer(new Counted);
        Pointer other(new Counted);
        pointer = other;
        QCOMPARE(Counted::s_alive, 1);
        QCOMPARE(other->getRefCount(), 2);
        pointer = new Counted;
        QCOMPARE(other->getRefCount(), 1);
        pointer = nullptr;
        QVERIFY(pointer.isNull());
        other = std::move(pointer);
        QCOMPARE(Counted::s_alive, 0);
    }

    void assignmentToItselfKeepsTheObject()
    {
        Pointer pointer(new Counted);
        const Pointer& same = pointer;
        pointer = same;
        QCOMPARE(pointer->getRefCount(), 1);
        pointer.reset(pointer.get());
        QCOMPARE(pointer->getRefCount(), 1);
    }

    void convertsToAPointerToTheBase()
    {
        const common_ActivePtr<Special> special(new Special);
        const Pointer base = special;
        QVERIFY(base == special);
        QCOMPARE(base->getRefCount(), 2);
        Pointer assigned;
        assigned = special;
        QCOMPARE(base->getRefCount(), 3);
    }

    void comparesWithPointersOfEverySort()
    {
        const common_ActivePtr<Special> special(new Special);
        const Pointer same(special);
        const Pointer other(new Counted);
        Special* const raw = special.get();
        QVERIFY(same == raw);
        QVERIFY(raw == same);
        QVERIFY(other != raw);
        QVERIFY(raw != other);
        QVERIFY(same != other);
        QVERIFY(!(same == other));
        QVERIFY(same != nullptr);
        QVERIFY(nullptr != same);
        QVERIFY(!(nullptr == same));
    }

    void alreadyShowsItsNewValueWhenTheOldObjectGoes()
    {
        Pointer pointer;
        pointer.reset(new Looking(pointer));
        pointer.reset();
        QVERIFY(Looking::s_holderWasNull);
    }

    void otherActorsCountInTheirOwnWay()
    {
        struct Actor
        {
            static void acquire(int* count) { ++*count; }
            static void release(int* count) { --*count; }
        };
        int count = 0;
        {
            const common_ActivePtr<int, Actor> first(&count);
            // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
            const common_ActivePtr<int, Actor> second = first;
            QCOMPARE(count, 2);
        }
        QCOMPARE(count, 0);
    }
};

QTEST_GUILESS_MAIN(tst_common_ActivePtr)
#include "tst_common_ActivePtr.moc"
