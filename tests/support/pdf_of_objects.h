#pragma once

#include <QByteArray>
#include <QList>

namespace ledra::test {

/// A PDF of these objects, of which one is the catalog.
inline QByteArray pdfOf(const QList<QByteArray>& objects, int root = 1)
{
    QByteArray pdf = "%PDF-1.4\n";
    QByteArray table = "0000000000 65535 f \n";
    for (qsizetype i = 0; i < objects.size(); ++i) {
        table += QByteArray::number(pdf.size()).rightJustified(10, '0') + " 00000 n \n";
        pdf += QByteArray::number(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const QByteArray start = QByteArray::number(pdf.size());
    const QByteArray count = QByteArray::number(objects.size() + 1);
    return pdf + "xref\n0 " + count + '\n' + table + "trailer\n<< /Root " + QByteArray::number(root) +
           " 0 R /Size " + count + " >>\nstartxref\n" + start + "\n%%EOF\n";
}

} // namespace ledra::test
