// The functions that libc++'s headers declare and that Qt needs. Its locks are Windows' slim locks:
// the headers give a mutex and a condition variable the size of a pointer.
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <locale>
#include <mutex>
#include <optional>
#include <system_error>
#include <variant>
#include <windows.h>

extern "C" [[noreturn]] void __cdecl __std_terminate(); // VCRUNTIME140.dll

static_assert(sizeof(SRWLOCK) == sizeof(std::__libcpp_mutex_t) && sizeof(CONDITION_VARIABLE) == sizeof(std::__libcpp_condvar_t));

static SRWLOCK *slimLock(std::__libcpp_mutex_t &mutex)
{
    return reinterpret_cast<SRWLOCK *>(&mutex);
}

static CONDITION_VARIABLE *variable(std::__libcpp_condvar_t &condition)
{
    return reinterpret_cast<CONDITION_VARIABLE *>(&condition);
}

namespace std {
inline namespace __1 {

// 100 nanoseconds since 1601-01-01, the epoch of Windows; that of the clock is 1970-01-01.
chrono::system_clock::time_point chrono::system_clock::now() noexcept
{
    using Ticks = chrono::duration<long long, ratio<1, 10000000>>;
    const Ticks unixEpoch(116444736000000000LL);
    FILETIME time = {};
    GetSystemTimeAsFileTime(&time);
    const Ticks ticks((static_cast<long long>(time.dwHighDateTime) << 32) | time.dwLowDateTime);
    return time_point(chrono::duration_cast<duration>(ticks - unixEpoch));
}

chrono::steady_clock::time_point chrono::steady_clock::now() noexcept
{
    LARGE_INTEGER frequency = {};
    LARGE_INTEGER count = {};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&count);
    const long long second = 1000000000;
    const long long whole = count.QuadPart / frequency.QuadPart;
    const long long rest = count.QuadPart % frequency.QuadPart;
    return time_point(chrono::nanoseconds(whole * second + rest * second / frequency.QuadPart));
}

void mutex::lock()
{
    AcquireSRWLockExclusive(slimLock(__m_));
}

bool mutex::try_lock() noexcept
{
    return TryAcquireSRWLockExclusive(slimLock(__m_)) != 0;
}

void mutex::unlock() noexcept
{
    ReleaseSRWLockExclusive(slimLock(__m_));
}

void condition_variable::notify_one() noexcept
{
    WakeConditionVariable(variable(__cv_));
}

void condition_variable::notify_all() noexcept
{
    WakeAllConditionVariable(variable(__cv_));
}

void condition_variable::wait(unique_lock<mutex> &lock) noexcept
{
    SleepConditionVariableSRW(variable(__cv_), slimLock(*lock.mutex()->native_handle()), INFINITE, 0);
}

void condition_variable::__do_timed_wait(unique_lock<mutex> &lock,
                                         chrono::time_point<chrono::system_clock, chrono::nanoseconds> end) noexcept
{
    const auto rest = chrono::duration_cast<chrono::milliseconds>(end - chrono::system_clock::now()).count();
    const DWORD longest = INFINITE - 1;
    const DWORD wait = rest <= 0 ? 0 : rest < longest ? static_cast<DWORD>(rest)
                                                      : longest;
    SleepConditionVariableSRW(variable(__cv_), slimLock(*lock.mutex()->native_handle()), wait, 0);
}

[[noreturn]] void __throw_system_error(int, const char *)
{
    std::abort();
}

// Qt asks for one facet of a locale: the letters of ASCII.
locale::id ctype<char>::id;
__shared_count::~__shared_count() { }
locale::facet::~facet() { }
void locale::facet::__on_zero_shared() noexcept { }

ctype<char>::ctype(const mask *table, bool, size_t references)
    : locale::facet(references), __tab_(table), __del_(false)
{ }
ctype<char>::~ctype() { }

char ctype<char>::do_toupper(char character) const
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}
char ctype<char>::do_tolower(char character) const
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}
const char *ctype<char>::do_toupper(char *begin, const char *end) const
{
    for (; begin != end; ++begin)
        *begin = do_toupper(*begin);
    return end;
}
const char *ctype<char>::do_tolower(char *begin, const char *end) const
{
    for (; begin != end; ++begin)
        *begin = do_tolower(*begin);
    return end;
}
char ctype<char>::do_widen(char character) const
{
    return character;
}
const char *ctype<char>::do_widen(const char *begin, const char *end, char *to) const
{
    while (begin != end)
        *to++ = *begin++;
    return end;
}
char ctype<char>::do_narrow(char character, char) const
{
    return character;
}
const char *ctype<char>::do_narrow(const char *begin, const char *end, char, char *to) const
{
    return do_widen(begin, end, to);
}

locale::locale() noexcept
    : __locale_(nullptr)
{ }

locale::~locale() { }

const locale &locale::classic()
{
    static const void *const nothing = nullptr; // use_facet() below does not read it
    return reinterpret_cast<const locale &>(nothing);
}

const locale::facet *locale::use_facet(id &wanted) const
{
    struct Letters final : std::ctype<char>
    {
        Letters()
            : std::ctype<char>(__pctype_func()) // the C library's table
        { }
    };
    static const Letters letters;
    if (&wanted != &std::ctype<char>::id)
        std::abort();
    return &letters;
}

} // namespace __1

[[noreturn]] void terminate() noexcept
{
    __std_terminate();
}

const char *bad_optional_access::what() const noexcept
{
    return "bad optional access";
}

const char *bad_variant_access::what() const noexcept
{
    return "bad variant access";
}
bad_optional_access::~bad_optional_access() noexcept = default;

} // namespace std
