// A stand-in for Qt5Core.dll: the members of QString and QChar that loading the library, separator()
// and the host need, in MSVC's names. make_stand_ins exports every other imported name as a
// function that ends the process.
//
// The functions have the names that MSVC gives to the members: a member function takes "this"
// first, and a constructor returns it.
#include <new.h>
#include <stdlib.h>
#include <string.h>

using Character = unsigned short;

// Qt 5's layout of a string's data (QArrayData).
struct Data
{
    int references;
    int size;
    unsigned capacity : 31;
    unsigned reserved : 1;
    long long offset;

    Character *characters() { return reinterpret_cast<Character *>(reinterpret_cast<char *>(this) + offset); }
};

struct String
{
    Data *data;
};

static int liveStrings = 0;
static bool throwsInAppend = false;

// For the host: QStrings that were constructed and not destroyed.
extern "C" __declspec(dllexport) int liveStringCount()
{
    return liveStrings;
}

// For the host: makes QString::append() throw std::bad_alloc.
extern "C" __declspec(dllexport) void throwInAppend(bool throws)
{
    throwsInAppend = throws;
}

static Data *allocate(int size)
{
    void *memory = malloc(sizeof(Data) + sizeof(Character) * static_cast<size_t>(size + 1));
    if (!memory)
        abort();
    Data *data = static_cast<Data *>(memory);
    *data = Data {1, size, static_cast<unsigned>(size + 1), 0, sizeof(Data)};
    data->characters()[size] = 0;
    return data;
}

// A reference count of -1 is that of a constant, which nobody frees.
static void release(Data *data)
{
    if (data->references != -1 && --data->references == 0)
        free(data);
}

String *construct(String *self) asm("??0QString@@QEAA@XZ");
String *construct(String *self)
{
    static Data empty = {-1, 0, 0, 0, sizeof(Data)};
    ++liveStrings;
    self->data = &empty;
    return self;
}

String *constructFromData(String *self, Data *data) asm("??0QString@@QEAA@UQStringDataPtr@@@Z");
String *constructFromData(String *self, Data *data)
{
    ++liveStrings;
    self->data = data;
    return self;
}

String *constructCopy(String *self, const String *other) asm("??0QString@@QEAA@AEBV0@@Z");
String *constructCopy(String *self, const String *other)
{
    ++liveStrings;
    self->data = other->data;
    if (self->data->references != -1)
        ++self->data->references;
    return self;
}

String *constructFilled(String *self, int size, Character character) asm("??0QString@@QEAA@HVQChar@@@Z");
String *constructFilled(String *self, int size, Character character)
{
    ++liveStrings;
    self->data = allocate(size);
    for (int i = 0; i < size; ++i)
        self->data->characters()[i] = character;
    return self;
}

void destroy(String *self) asm("??1QString@@QEAA@XZ");
void destroy(String *self)
{
    --liveStrings;
    release(self->data);
}

String *append(String *self, const String *other) asm("?append@QString@@QEAAAEAV1@AEBV1@@Z");
String *append(String *self, const String *other)
{
    if (throwsInAppend)
        throw std::bad_alloc();
    Data *left = self->data;
    Data *right = other->data;
    Data *joined = allocate(left->size + right->size);
    memcpy(joined->characters(), left->characters(), sizeof(Character) * static_cast<size_t>(left->size));
    memcpy(joined->characters() + left->size, right->characters(),
           sizeof(Character) * static_cast<size_t>(right->size));
    self->data = joined;
    release(left);
    return self;
}

const Character *constData(const String *self) asm("?constData@QString@@QEBAPEBVQChar@@XZ");
const Character *constData(const String *self)
{
    return self->data->characters();
}

Character *constructFromLatin1(Character *self, unsigned char character) asm("??0QChar@@QEAA@UQLatin1Char@@@Z");
Character *constructFromLatin1(Character *self, unsigned char character)
{
    *self = character;
    return self;
}
