#pragma once

#include "TDateTimeUtils.h"

#include <QAbstractTableModel>
#include <QString>
#include <vector>

namespace norvik {
class InvDBConnection;
}

// One line of the welcome page's list of recent feedbacks.
struct TLastFeedbackRow {
    norvik::TDateTime DOCDatum = 0;
    // first and last name, trimmed as a whole
    QString Patient;
    QString Therapeut;
    qint64 DOCID = 0;
};

// The five latest feedbacks, newest first, as the welcome page lists them: date and time,
// patient, therapist, and the hidden document ID. The list is for reading only.
class TLastFeedbacksModel : public QAbstractTableModel {
public:
    enum Column { tvDOCColumn1, tvDOCColumn2, tvDOCColumn3, tvDOCDOCID, ColumnCount };

    static inline const QString LastFeedbacksSQL = QStringLiteral(
        "SELECT TOP 5 DOCThema, DOCDatum, DOCDiagTherapeutName, PATGeschlecht, PATVorname, PATNachname, "
        "DOCID FROM tblDokumente INNER JOIN tblPatienten ON tblPatienten.PATID = tblDokumente.PATID "
        "ORDER BY DOCDatum DESC, PATNachname, PATVorname");

    using QAbstractTableModel::QAbstractTableModel;

    // Reads the rows; a failing query raises and nothing is given.
    static std::vector<TLastFeedbackRow> ReadRows(norvik::InvDBConnection& AConnection);
    // the date column's text: the Austrian short date and time
    static QString DateText(norvik::TDateTime AValue);

    // Reloads the rows; when the query fails, the model keeps what it had and the failure
    // goes on to the caller.
    void Refresh(norvik::InvDBConnection& AConnection);
    void SetRows(std::vector<TLastFeedbackRow> ARows);

    int rowCount(const QModelIndex& AParent = QModelIndex()) const override;
    int columnCount(const QModelIndex& AParent = QModelIndex()) const override;
    QVariant data(const QModelIndex& AIndex, int ARole = Qt::DisplayRole) const override;
    QVariant headerData(int ASection, Qt::Orientation AOrientation,
                        int ARole = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& AIndex) const override;

private:
    std::vector<TLastFeedbackRow> FRows;

    QVariant CellValue(const TLastFeedbackRow& ARow, int AColumn) const;
};
