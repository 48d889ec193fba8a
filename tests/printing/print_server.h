#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace velta {

/// A print server of the test's own: with its own settings, socket and folders, and queues whose
/// printers swallow everything. What was printed stays in its folder. It needs no rights, touches
/// no other print server of the machine, and ends with the test, however that ends.
///
/// The printing library of a process looks for its server only once: make one PrintServer, before
/// anything is printed, and keep it.
class PrintServer {
 public:
  PrintServer();
  ~PrintServer();

  /// False where cupsd is not installed or does not start. What it has to say then is in error().
  bool Start();
  void Stop();
  QString error() const;

  void AddQueue(const QString& name);
  void RemoveQueue(const QString& name);
  /// None is the default one at first, and none again when that queue is removed.
  void MakeDefault(const QString& queue);
  void Reject(const QString& queue);
  void Accept(const QString& queue);

  /// The files of all jobs, in the order in which they came.
  QStringList Jobs() const;
  /// What the job on place `index` of Jobs() is to be printed on, and how often.
  QString QueueOf(qsizetype index) const;
  int CopiesOf(qsizetype index) const;

 private:
  static QString FindProgram(const QString& name);
  bool Run(const QString& program, const QStringList& arguments) const;
  void WriteSettings() const;

  QTemporaryDir folder_;
  QProcess process_;
};

}  // namespace velta
