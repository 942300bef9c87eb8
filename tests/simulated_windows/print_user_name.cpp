// Prints the result of GetUserName().

#include <QtCore/QString>
#include <cstdio>
#include <windows.h>

int main()
{
    WCHAR name[64];
    DWORD size = 64;
    const BOOL known = GetUserNameW(name, &size);
    std::puts(known ? QString::fromWCharArray(name).toUtf8().constData() : "failed");
}
