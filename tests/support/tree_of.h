#pragma once

#include "support/program_run.h"

#include <filesystem>

namespace ledra::test {

/// What a folder holds: of files the content, of others "/".
inline QMap<QByteArray, QByteArray> treeOf(const QString& folder)
{
    namespace fs = std::filesystem;
    const fs::path root = folder.toStdString();
    QMap<QByteArray, QByteArray> tree;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
        const QByteArray name = QByteArray::fromStdString(entry.path().lexically_relative(root).native());
        const bool isFile = entry.symlink_status().type() == fs::file_type::regular;
        tree[name] = isFile ? contentOf(QString::fromStdString(entry.path().native())) : "/";
    }
    return tree;
}

} // namespace ledra::test
