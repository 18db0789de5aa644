#include "TDocxPackage.h"

#include "EDocumentError.h"
#include "OpenXmlReading.h"

#include <QBuffer>
#include <QDir>
#include <QXmlStreamReader>
#include <quazip/quazip.h>
#include <quazip/quazipfile.h>

namespace engine {

namespace {

// a relationship's target is relative to the folder of its source part
QString resolveTarget(const QString& sourcePart, const QString& target) {
    if (target.startsWith(u'/'))
        return target.mid(1);
    const int slash = sourcePart.lastIndexOf(u'/');
    const QString folder = slash < 0 ? QString() : sourcePart.left(slash + 1);
    return QDir::cleanPath(folder + target);
}

QString relationshipsPartOf(const QString& partName) {
    const int slash = partName.lastIndexOf(u'/');
    return partName.left(slash + 1) + u"_rels/" + partName.mid(slash + 1) + u".rels";
}

} // namespace

TDocxPackage::TDocxPackage(const QByteArray& zip) {
    QByteArray data = zip;
    QBuffer buffer(&data);
    QuaZip archive(&buffer);
    if (zip.isEmpty() || !archive.open(QuaZip::mdUnzip))
        throw EDocumentError(QStringLiteral("Das Dokument ist keine DOCX-Datei."));
    for (bool more = archive.goToFirstFile(); more; more = archive.goToNextFile()) {
        QuaZipFile file(&archive);
        if (!file.open(QIODevice::ReadOnly))
            throw EDocumentError(QStringLiteral("Das DOCX-Dokument ist beschädigt."));
        m_parts.insert(archive.getCurrentFileName(), file.readAll());
        if (file.getZipError() != UNZ_OK)
            throw EDocumentError(QStringLiteral("Das DOCX-Dokument ist beschädigt."));
    }
    if (archive.getZipError() != UNZ_OK)
        throw EDocumentError(QStringLiteral("Das DOCX-Dokument ist beschädigt."));
}

TDocxPackage::TRelationships TDocxPackage::relationships(const QString& partName) const {
    TRelationships result;
    QXmlStreamReader xml(part(relationshipsPartOf(partName)));
    while (!xml.atEnd()) {
        xml.readNext();
        if (!openxml::isStart(xml, u"Relationship"))
            continue;
        TRelationship relationship;
        relationship.type = openxml::attribute(xml, u"Type");
        relationship.external = openxml::attribute(xml, u"TargetMode") == u"External";
        const QString target = openxml::attribute(xml, u"Target");
        relationship.target = relationship.external ? target : resolveTarget(partName, target);
        result.insert(openxml::attribute(xml, u"Id"), relationship);
    }
    return result;
}

QString TDocxPackage::targetOfType(const QString& partName, const QString& typeSuffix) const {
    const TRelationships all = relationships(partName);
    for (const TRelationship& relationship : all) {
        if (relationship.type.endsWith(typeSuffix) && !relationship.external)
            return relationship.target;
    }
    return {};
}

} // namespace engine
