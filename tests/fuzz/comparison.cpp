#include "comparison.h"

#include <algorithm>

namespace machine {
namespace {

struct AnyVisitor
{
    template <typename Member>
    void operator()(const char *, Member) const
    { }
};

} // namespace

// In the namespace of the records, so that operator== of the containers finds them.

template <typename Record, typename = decltype(Record::fields(AnyVisitor()))>
bool operator==(const Record &left, const Record &right)
{
    bool same = true;
    Record::fields([&](const char *, auto member) { same = same && left.*member == right.*member; });
    return same;
}

template <typename T>
bool operator==(const Answer<T> &left, const Answer<T> &right)
{
    return left.value == right.value && (left.value || left.error == right.error);
}

bool operator==(const NumberedAnswers &left, const NumberedAnswers &right)
{
    using Answers = QMap<int, Answer<QString>>;
    return static_cast<const Answers &>(left) == static_cast<const Answers &>(right) && left.error == right.error;
}

} // namespace machine

namespace {

using machine::RegistryKey;
using machine::RegistryRoot;
using machine::RegistryValue;

bool isSame(const RegistryValue &left, const RegistryValue &right)
{
    return left.name == right.name && left.type == right.type && left.data == right.data;
}

bool isSame(const RegistryKey &left, const RegistryKey &right)
{
    if (left.name() != right.name() || left.isDenied() != right.isDenied() || left.subKeyCount() != right.subKeyCount())
        return false;
    if (!std::equal(left.values().begin(), left.values().end(), right.values().begin(), right.values().end(),
                    [](const RegistryValue &a, const RegistryValue &b) { return isSame(a, b); }))
        return false;
    for (std::size_t i = 0; i < left.subKeyCount(); ++i) {
        if (!isSame(*left.subKeyAt(i), *right.subKeyAt(i)))
            return false;
    }
    return true;
}

} // namespace

bool isSame(const machine::Registry &left, const machine::Registry &right)
{
    for (const RegistryRoot root : {RegistryRoot::ClassesRoot, RegistryRoot::CurrentUser, RegistryRoot::LocalMachine,
                                    RegistryRoot::Users}) {
        if (!isSame(*left.root(root), *right.root(root)))
            return false;
    }
    return true;
}

QByteArray differenceOf(const machine::SystemAnswers &left, const machine::SystemAnswers &right)
{
    using machine::operator==;
    QByteArray difference;
    machine::SystemAnswers::fields([&](const char *name, auto member) {
        if (difference.isEmpty() && !(left.*member == right.*member))
            difference = name;
    });
    if (difference.isEmpty() && left.expansionErrors != right.expansionErrors)
        difference = "expansionErrors";
    if (difference.isEmpty() && !(left.folders == right.folders))
        difference = "folders";
    return difference;
}
