#include "TLastFeedbacksModel.h"

#include "InvDBConnection.h"
#include "SystemFormats.h"

using namespace norvik;

namespace {

// the fields stand in the positions of the statement; subject and gender are not shown
enum Field { fDOCThema, fDOCDatum, fDOCDiagTherapeutName, fPATGeschlecht, fPATVorname, fPATNachname, fDOCID };

TLastFeedbackRow RowOf(const TnvDataSet& AQuery) {
    TLastFeedbackRow row;
    row.DOCDatum = AQuery.Fields(fDOCDatum).AsDateTime();
    row.Patient =
        QString(AQuery.Fields(fPATVorname).AsString() + u' ' + AQuery.Fields(fPATNachname).AsString())
            .trimmed();
    row.Therapeut = AQuery.Fields(fDOCDiagTherapeutName).AsString();
    row.DOCID = AQuery.Fields(fDOCID).AsLargeInt();
    return row;
}

} // namespace

std::vector<TLastFeedbackRow> TLastFeedbacksModel::ReadRows(InvDBConnection& AConnection) {
    std::vector<TLastFeedbackRow> rows;
    const std::unique_ptr<TnvDataSet> query = AConnection.PSOpenQuery(LastFeedbacksSQL);
    for (; !query->Eof(); query->Next())
        rows.push_back(RowOf(*query));
    query->Close();
    return rows;
}

QString TLastFeedbacksModel::DateText(TDateTime AValue) {
    const platform::SystemFormats& formats = platform::SystemFormats::current();
    const QDateTime moment = TDateTimeUtils::toQDateTime(AValue);
    // a document stored with its day alone shows no made-up midnight
    if (moment.time() == QTime(0, 0))
        return moment.toString(formats.shortDateFormat);
    return moment.toString(formats.shortDateFormat + u' ' + formats.shortTimeFormat);
}

void TLastFeedbacksModel::Refresh(InvDBConnection& AConnection) {
    SetRows(ReadRows(AConnection));
}

void TLastFeedbacksModel::SetRows(std::vector<TLastFeedbackRow> ARows) {
    beginResetModel();
    FRows = std::move(ARows);
    endResetModel();
}

int TLastFeedbacksModel::rowCount(const QModelIndex& AParent) const {
    return AParent.isValid() ? 0 : static_cast<int>(FRows.size());
}

int TLastFeedbacksModel::columnCount(const QModelIndex& AParent) const {
    return AParent.isValid() ? 0 : ColumnCount;
}

QVariant TLastFeedbacksModel::data(const QModelIndex& AIndex, int ARole) const {
    if (!AIndex.isValid() || AIndex.row() >= rowCount() || ARole != Qt::DisplayRole)
        return {};
    return CellValue(FRows[static_cast<size_t>(AIndex.row())], AIndex.column());
}

QVariant TLastFeedbacksModel::CellValue(const TLastFeedbackRow& ARow, int AColumn) const {
    switch (AColumn) {
    case tvDOCColumn1:
        return DateText(ARow.DOCDatum);
    case tvDOCColumn2:
        return ARow.Patient;
    case tvDOCColumn3:
        return ARow.Therapeut;
    case tvDOCDOCID:
        return ARow.DOCID;
    default:
        return {};
    }
}

QVariant TLastFeedbacksModel::headerData(int ASection, Qt::Orientation AOrientation, int ARole) const {
    static const QStringList captions{QStringLiteral("Datum"), QStringLiteral("Patient"),
                                      QStringLiteral("Therapeut"), QStringLiteral("DOCID")};
    if (AOrientation != Qt::Horizontal || ARole != Qt::DisplayRole || ASection < 0 || ASection >= ColumnCount)
        return QAbstractTableModel::headerData(ASection, AOrientation, ARole);
    return captions.at(ASection);
}

Qt::ItemFlags TLastFeedbacksModel::flags(const QModelIndex& AIndex) const {
    // selectable for the eye, never editable
    return AIndex.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}
