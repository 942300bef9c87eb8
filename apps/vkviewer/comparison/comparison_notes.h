// What readers of a comparison have to know about the reports.
#pragma once

#include "report/loaded_report.h"

#include <QtCore/QCoreApplication>

class ComparisonNotes
{
    Q_DECLARE_TR_FUNCTIONS(ComparisonNotes)

public:
    /// A sentence for each thing that makes values seem to differ; empty if there is none.
    static QStringList of(const LoadedReport &report);

    /// "11 differences. 10 values that change every moment are not shown."
    static QString summary(int differences, int everyMoment, bool showsEveryMoment);

    /// "11 differences", "1 difference".
    static QString differences(int count);
    /// "11 rows match the filter."
    static QString matches(int rows);
    /// "In 2 sections only the text differs."; empty for none.
    static QString onlyTexts(int sections);

    /// What readers of the comparison, and those who get it, have to know about personal data.
    static QString privacy(bool isHidden);
    /// What is said until the result is there.
    static QString work(bool isHidden);

    /// The report's name on one line.
    static QString name(const LoadedReport &report);
    /// The name of a report whose own name must not be shown: "report 2".
    static QString number(int number);
    /// Where the report is, for tooltips: names of files are often equal.
    static QString place(const LoadedReport &report);
};
