// Declares the exceptions that libc++ expects of MSVC's run time. vcruntime140.dll reads and
// writes the text of an exception, so the layout must be MSVC's.
#pragma once

#include <stddef.h>

struct __std_exception_data
{
    const char *_What;
    bool _DoFree;
};
extern "C" void __cdecl __std_exception_copy(const __std_exception_data *from, __std_exception_data *to);
extern "C" void __cdecl __std_exception_destroy(__std_exception_data *data);

namespace std {

class exception
{
public:
    exception() noexcept
        : _Data()
    { }
    explicit exception(const char *what) noexcept
        : _Data()
    {
        const __std_exception_data from = {what, true};
        __std_exception_copy(&from, &_Data);
    }
    // Keeps the pointer: for literals. The second argument only selects this constructor.
    exception(const char *what, int) noexcept
        : _Data()
    {
        _Data._What = what;
    }
    exception(const exception &other) noexcept
        : _Data()
    {
        __std_exception_copy(&other._Data, &_Data);
    }
    exception &operator=(const exception &other) noexcept
    {
        if (this != &other) {
            __std_exception_destroy(&_Data);
            __std_exception_copy(&other._Data, &_Data);
        }
        return *this;
    }
    virtual ~exception() noexcept { __std_exception_destroy(&_Data); }
    virtual const char *what() const noexcept { return _Data._What ? _Data._What : "Unknown exception"; }

private:
    __std_exception_data _Data;
};

class bad_exception : public exception
{
public:
    bad_exception() noexcept
        : exception("bad exception", 1)
    { }
};

class bad_alloc : public exception
{
public:
    bad_alloc() noexcept
        : exception("bad allocation", 1)
    { }

protected:
    bad_alloc(const char *what) noexcept
        : exception(what, 1)
    { }
};

class bad_array_new_length : public bad_alloc
{
public:
    bad_array_new_length() noexcept
        : bad_alloc("bad array new length")
    { }
};

} // namespace std

static_assert(sizeof(std::exception) == 24, "MSVC's layout of std::exception");
