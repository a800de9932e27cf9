#pragma once

#include "platform/pdf_file.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>

namespace ledra {

struct PdfFile::Document
{
    QPDF pdf;
    std::vector<QByteArray> sources; // the library reads pages from these until the document is written
};

inline std::vector<QPDFPageObjectHelper> pagesOf(QPDF& pdf)
{
    return QPDFPageDocumentHelper(pdf).getAllPages();
}

inline PdfError failure(const std::exception& thrown)
{
    return {QString::fromUtf8(thrown.what())};
}

} // namespace ledra
