// A short report of somebody, for tests of redaction.
#pragma once

#include "vkReports.h"

/// The user "Lindmoor" stands in four places, the computer "BIRKENTAL-PC" in two, and two variables become their length.
inline velkor::Reports::Document reportOfLindmoor()
{
    const QByteArray end = velkor::Reports::separatorLine() + '\n';
    return velkor::Reports::read("############ Windows specific section ###########\nComputer name\n"
                                 "NetBios name:                 BIRKENTAL-PC\n"
                                 "Physical NetBios name:        BIRKENTAL-PC\n"
                                 "User name:                    Lindmoor\n"
                                 + end
                                 + "Windows system directories\nSystem directory:      C:\\Windows\nSpecial Folders: \n"
                                   "CSIDL_PERSONAL    C:\\Users\\Lindmoor\\Documents\n"
                                 + end
                                 + "Loaded modules/DLLs:\nC:\\Users\\lindmoor\\AppData\\eisvogel.dll\nC:\\Windows\\System32\\kernel32.dll\n" + end
                                 + velkor::Reports::halfHeading(velkor::Reports::Half::Qt)
                                 + "\nSystem environemnt (QProcess::systemEnvironment()):\n  QUELLWERK_MODE=meadow\n  QUELLWERK_KEY=abc\n"
                                   "  USERNAME=Lindmoor\n"
                                 + end);
}
