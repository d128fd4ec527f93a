#include "fuzz/Fuzz.h"

#include <QDirIterator>
#include <QFile>

#include <cstdio>

/// Goes once through every file of the folders that it is given. Fails where there is none.
int main(int argc, char *argv[])
{
    int count = 0;
    for (int index = 1; index < argc; ++index) {
        QDirIterator files(QFile::decodeName(argv[index]), QDir::Files);
        while (files.hasNext()) {
            QFile file(files.next());
            if (!file.open(QIODevice::ReadOnly))
                return 1;
            const QByteArray bytes = file.readAll();
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.constData()),
                                   static_cast<std::size_t>(bytes.size()));
            ++count;
        }
    }
    std::printf("%d inputs\n", count);
    return count > 0 ? 0 : 1;
}
