// Reports as a comparison shows them if personal data are to be hidden.
#pragma once

#include "report/loaded_report.h"

#include <QtCore/QStringList>
#include <vector>

/// What a comparison hides.
struct PersonalData
{
    bool isHidden = false;
    /// What the user hid by hand, as RedactionOptions::hide has it. What he took back in a report is hidden here.
    QStringList hide;

    bool operator==(const PersonalData &other) const { return isHidden == other.isHidden && hide == other.hide; }
};

/// A key of aliases for one comparison: they mean nothing anywhere else.
QByteArray newAliasKey();

/// The reports without names, addresses and secrets, in their texts and in their own names; without paths of files. The same
/// thing has the same alias in all of them. Takes some
/// seconds for 10 MByte that are full of names. Can be called from any thread.
std::vector<LoadedReport> withoutPersonalData(const std::vector<LoadedReport> &reports, const QStringList &hide, const QByteArray &key);
