#include "einvoice/embedded_files.h"

namespace ledra {

namespace {

constexpr qsizetype mostFiles = 500;

/// What an embedded file is called; a document without a file name has at least a reference.
QString nameOf(const Element& reference, const Element& object)
{
    const std::string_view name = object.attribute("filename").value_or(std::string_view());
    const QString text = QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())).trimmed();
    return text.isEmpty() ? QString::fromStdString(reference.textAt("IssuerAssignedID")).trimmed() : text;
}

template <class Visit>
void forEachFile(const Element& root, const Visit& visit)
{
    root.forEach("AdditionalReferencedDocument", [&](const Element& reference) {
        reference.forEachChild("AttachmentBinaryObject", [&](const Element& object) {
            if (const QString name = nameOf(reference, object); !name.isEmpty())
                visit(name, object);
        });
    });
}

std::optional<QByteArray> decoded(const Element& object)
{
    QByteArray base64 = QByteArray::fromStdString(object.text());
    // Programs break it into lines, which the decoder takes for damage.
    base64.removeIf([](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
    const auto result =
        QByteArray::fromBase64Encoding(std::move(base64), QByteArray::AbortOnBase64DecodingErrors);
    return result && !(*result).isEmpty() ? std::optional(*result) : std::nullopt;
}

} // namespace

QStringList embeddedFileNames(const Element& root)
{
    QStringList names;
    forEachFile(root, [&](const QString& name, const Element&) {
        if (names.size() < mostFiles && !names.contains(name))
            names += name;
    });
    return names;
}

std::optional<QByteArray> embeddedFile(const Element& root, const QString& name)
{
    const Element* found = nullptr;
    forEachFile(root, [&](const QString& each, const Element& object) {
        if (!found && each == name)
            found = &object;
    });
    return found ? decoded(*found) : std::nullopt;
}

} // namespace ledra
