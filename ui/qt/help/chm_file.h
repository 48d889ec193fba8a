#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

struct chmFile;

namespace velta::qt {

/// A compiled help file, open for reading.
class ChmFile {
 public:
  /// Opens the file. Null where there is none or it is not, byte by byte, as help/make_chm.py wrote
  /// it: what reads such files is not made for damaged ones.
  static std::unique_ptr<ChmFile> Open(const QString& path);

  /// The content of a file in it, by its full name there: "/velta.css". Empty where there is none.
  QByteArray Read(const QString& name) const;

  /// The full names of the first page and of the contents tree; empty where the file has none.
  QString home() const { return home_; }
  QString contents() const { return contents_; }

  /// The full name of the page with that context number; empty where there is none.
  QString Topic(int number) const;

 private:
  struct Closer {
    void operator()(chmFile* file) const;
  };

  ChmFile(chmFile* file, qint64 size);
  void ReadSystemTable();

  std::unique_ptr<chmFile, Closer> file_;
  qint64 size_;
  QString home_;
  QString contents_;
};

}  // namespace velta::qt
