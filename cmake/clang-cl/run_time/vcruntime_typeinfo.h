// Declares the type information that libc++ expects of MSVC's run time. The compiler writes the
// data of type_info, so the layout must be MSVC's.
#pragma once

#include <vcruntime_exception.h>

struct __std_type_info_data
{
    const char *_UndecoratedName;
    const char _DecoratedName[1];
};
extern "C" int __cdecl __std_type_info_compare(const __std_type_info_data *, const __std_type_info_data *);
extern "C" size_t __cdecl __std_type_info_hash(const __std_type_info_data *);

class type_info
{
public:
    type_info(const type_info &) = delete;
    type_info &operator=(const type_info &) = delete;
    virtual ~type_info() noexcept;

    size_t hash_code() const noexcept { return __std_type_info_hash(&_Data); }
    bool operator==(const type_info &other) const { return __std_type_info_compare(&_Data, &other._Data) == 0; }
    bool operator!=(const type_info &other) const { return __std_type_info_compare(&_Data, &other._Data) != 0; }
    bool before(const type_info &other) const { return __std_type_info_compare(&_Data, &other._Data) < 0; }
    const char *raw_name() const noexcept { return _Data._DecoratedName; }
    // MSVC returns the undecorated name, which needs more of the run time.
    const char *name() const noexcept { return _Data._DecoratedName; }

private:
    mutable __std_type_info_data _Data;
};

namespace std {

using ::type_info;

class bad_cast : public exception
{
public:
    bad_cast() noexcept
        : exception("bad cast", 1)
    { }
};

class bad_typeid : public exception
{
public:
    bad_typeid() noexcept
        : exception("bad typeid", 1)
    { }
};

} // namespace std
