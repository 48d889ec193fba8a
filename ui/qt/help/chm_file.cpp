#include "ui/qt/help/chm_file.h"

#include <chm_lib.h>

#include <QCryptographicHash>
#include <QFile>
#include <QtEndian>
#include <optional>

namespace velta::qt {

namespace {

// The stamp stands where other compilers write the time: the first bytes of the SHA-256 of the file
// with zeros in their place.
constexpr qsizetype kStampOffset = 0x10;
constexpr qsizetype kStampSize = 4;

bool IsWhole(QByteArray bytes) {
  if (bytes.size() < kStampOffset + kStampSize) return false;
  const QByteArray stamp = bytes.mid(kStampOffset, kStampSize);
  bytes.replace(kStampOffset, kStampSize, QByteArray(kStampSize, '\0'));
  return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).startsWith(stamp);
}

/// A number of the file's tables, or nothing beyond their end.
template <class Number>
std::optional<Number> NumberAt(const QByteArray& table, qsizetype offset) {
  if (offset < 0 || offset > table.size() - static_cast<qsizetype>(sizeof(Number))) return {};
  return qFromLittleEndian<Number>(table.constData() + offset);
}

/// The text from there up to its closing zero, as the full name of a file. Names are plain ASCII.
QString NameAt(const QByteArray& table, qsizetype offset) {
  const QByteArray name = table.mid(offset, qMax(table.indexOf('\0', offset) - offset, 0));
  return name.isEmpty() ? QString() : u'/' + QString::fromLatin1(name);
}

}  // namespace

std::unique_ptr<ChmFile> ChmFile::Open(const QString& path) {
  QFile whole(path);
  if (!whole.open(QIODevice::ReadOnly) || !IsWhole(whole.readAll())) return nullptr;
  chmFile* file = chm_open(QFile::encodeName(path).constData());
  if (file == nullptr) return nullptr;
  std::unique_ptr<ChmFile> opened(new ChmFile(file, whole.size()));
  opened->ReadSystemTable();
  return opened;
}

ChmFile::ChmFile(chmFile* file, qint64 size) : file_(file), size_(size) {}

void ChmFile::Closer::operator()(chmFile* file) const { chm_close(file); }

QByteArray ChmFile::Read(const QString& name) const {
  chmUnitInfo unit{};
  if (chm_resolve_object(file_.get(), name.toUtf8().constData(), &unit) != CHM_RESOLVE_SUCCESS ||
      unit.length > static_cast<LONGUINT64>(size_)) {
    return {};
  }
  const auto length = static_cast<qsizetype>(unit.length);
  QByteArray content(length, '\0');
  auto* buffer = reinterpret_cast<unsigned char*>(content.data());
  if (chm_retrieve_object(file_.get(), &unit, buffer, 0, length) != length) return {};
  return content;
}

/// After a version: entries of a number, a length and a value.
void ChmFile::ReadSystemTable() {
  constexpr quint16 kContents = 0;
  constexpr quint16 kHome = 2;
  const QByteArray table = Read("/#SYSTEM");
  qsizetype at = 4;
  while (const auto length = NumberAt<quint16>(table, at + 2)) {
    const quint16 number = *NumberAt<quint16>(table, at);
    if (number == kContents) contents_ = NameAt(table, at + 4);
    if (number == kHome) home_ = NameAt(table, at + 4);
    at += 4 + *length;
  }
}

/// #IVB has, after its length, pairs of a context number and the place of a name in #STRINGS.
QString ChmFile::Topic(int number) const {
  const QByteArray pairs = Read("/#IVB");
  const QByteArray names = Read("/#STRINGS");
  for (qsizetype at = 4; const auto place = NumberAt<quint32>(pairs, at + 4); at += 8) {
    if (*NumberAt<qint32>(pairs, at) == number) return NameAt(names, *place);
  }
  return {};
}

}  // namespace velta::qt
