// Lines of two reports beside each other.
#pragma once

#include "compared_reports.h"

#include <QtCore/QAbstractTableModel>

/// A part of the line that differs from the other side, in characters of what is shown.
struct LinePart
{
    int begin = 0;
    int end = 0;
};

Q_DECLARE_METATYPE(LinePart)

class AlignedTextModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        OlderSign,
        OlderLine,
        NewerSign,
        NewerLine,
        ColumnCount,
    };
    enum Role {
        ChangeRole = Qt::UserRole + 100, ///< LineChange as a number; what is not to be shown is the same
        PartRole,                        ///< LinePart; of a line that changed
        MissingRole,                     ///< true if the side has no such line
    };

    explicit AlignedTextModel(QObject *parent = nullptr);

    void setReports(std::shared_ptr<const ComparedReports> reports);
    /// Which indexes of AlignedText::rows are shown.
    void setRows(LineIndexes rows);
    LineIndexes rows() const { return m_rows; }
    void setShowsEveryMoment(bool shows);

    /// The lines of one side with their line ends, byte for byte.
    QByteArray bytes(const std::vector<int> &rows, bool older) const;
    /// The length of the longest line that is shown, in bytes; bounded.
    int longestLine() const { return m_longestLine; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    const AlignedRow &row(int index) const;
    LineChange change(int index) const;
    QString line(int index, bool older) const;
    QString sign(int index, bool older) const;
    QString description(int index, bool older) const;
    LinePart part(int index, bool older) const;
    bool isMissing(int index, bool older) const;
    int findLongestLine() const;

    std::shared_ptr<const ComparedReports> m_reports;
    LineIndexes m_rows;
    int m_longestLine = 0;
    bool m_showsEveryMoment = false;
};
