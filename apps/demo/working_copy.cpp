#include "working_copy.h"

#include "krv/platform/error.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace krv::demo {

namespace {

constexpr std::int32_t path_error = 75;

/// What was stored in the old copy is kept once more; its side files belong to nothing else.
void set_aside(const QString& path) {
    const QString kept = path + ".old";
    for (const char* side_file : {"-journal", "-wal", "-shm"}) {
        QFile::remove(path + side_file);
    }
    QFile::remove(kept);
    QFile::rename(path, kept);
}

} // namespace

std::string working_copy(const std::string& original) {
    const QFileInfo source(QString::fromStdString(original));
    const QString path = source.dir().filePath("ordini.db");
    const QFileInfo copy(path);
    if (!copy.isFile() || copy.lastModified() < source.lastModified()) {
        set_aside(path);
        if (!QFile::copy(source.filePath(), path)) {
            throw platform::RuntimeError(path_error,
                                         "Cannot make the copy to work on: " + path.toStdString(),
                                         "krvlist-demo");
        }
        QFile::setPermissions(path, QFile::permissions(path) | QFile::WriteOwner);
    }
    return path.toStdString();
}

} // namespace krv::demo
