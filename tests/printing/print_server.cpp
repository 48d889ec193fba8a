#include "tests/printing/print_server.h"

#include <cups/cups.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <csignal>
#include <memory>

namespace velta {

namespace {

// In milliseconds.
constexpr int kPatience = 10'000;
constexpr int kPause = 20;

const char* const kSettings = R"(
Listen %1/socket
Browsing No
WebInterface No
DefaultAuthType None
PreserveJobFiles Yes
PreserveJobHistory Yes
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
)";

const char* const kFolders = R"(
FileDevice Yes
SystemGroup root
ServerRoot %1/root
RequestRoot %1/spool
TempDir %1/temp
CacheDir %1/cache
StateDir %1/state
AccessLog %1/access.log
ErrorLog %1/error.log
PageLog %1/page.log
)";

void WriteFile(const QString& path, const char* text, const QString& folder) {
  QFile file(path);
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  file.write(QString(text).arg(folder).toUtf8());
}

/// What the server knows about a job, or null.
std::unique_ptr<ipp_t, decltype(&ippDelete)> AskForJob(int number) {
  ipp_t* const request = ippNewRequest(IPP_OP_GET_JOB_ATTRIBUTES);
  const QByteArray job = "ipp://localhost/jobs/" + QByteArray::number(number);
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "job-uri", nullptr, job.constData());
  return {cupsDoRequest(CUPS_HTTP_DEFAULT, request, "/"), &ippDelete};
}

/// "d00012-001" is the first and only file of job 12.
int JobNumber(const QString& file) { return QFileInfo(file).fileName().mid(1, 5).toInt(); }

}  // namespace

PrintServer::PrintServer() {
  for (const char* const name : {"root/ppd", "spool", "temp", "cache", "state"}) {
    QDir(folder_.path()).mkpath(name);
  }
  WriteSettings();
  qputenv("CUPS_SERVER", folder_.filePath("socket").toUtf8());
  // Whatever becomes of the tests, their server goes with them.
  process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
  process_.setProcessChannelMode(QProcess::MergedChannels);
}

PrintServer::~PrintServer() { Stop(); }

void PrintServer::WriteSettings() const {
  WriteFile(folder_.filePath("cupsd.conf"), kSettings, folder_.path());
  WriteFile(folder_.filePath("cups-files.conf"), kFolders, folder_.path());
}

QString PrintServer::FindProgram(const QString& name) {
  const QString found = QStandardPaths::findExecutable(name);
  return found.isEmpty() ? QStandardPaths::findExecutable(name, {"/usr/sbin", "/sbin"}) : found;
}

bool PrintServer::Run(const QString& program, const QStringList& arguments) const {
  QProcess process;
  process.setProcessChannelMode(QProcess::MergedChannels);
  process.start(FindProgram(program), arguments);
  return process.waitForFinished(kPatience) && process.exitStatus() == QProcess::NormalExit &&
         process.exitCode() == 0;
}

bool PrintServer::Start() {
  if (process_.state() == QProcess::Running) return true;
  if (FindProgram("cupsd").isEmpty() || FindProgram("lpadmin").isEmpty()) return false;
  process_.start(FindProgram("cupsd"), {"-f", "-c", folder_.filePath("cupsd.conf"), "-s",
                                        folder_.filePath("cups-files.conf")});
  if (!process_.waitForStarted(kPatience)) return false;
  for (int waited = 0; waited < kPatience; waited += kPause) {
    if (QFile::exists(folder_.filePath("socket")) && Run("lpstat", {"-r"})) return true;
    if (process_.waitForFinished(kPause)) return false;
  }
  return false;
}

void PrintServer::Stop() {
  if (process_.state() == QProcess::NotRunning) return;
  process_.terminate();
  if (process_.waitForFinished(kPatience)) return;
  process_.kill();
  process_.waitForFinished();
}

QString PrintServer::error() const {
  if (FindProgram("cupsd").isEmpty()) return "cupsd is not installed (package cups-daemon)";
  if (FindProgram("lpadmin").isEmpty()) return "lpadmin is not installed (package cups-client)";
  QFile log(folder_.filePath("error.log"));
  return "cupsd does not start: " +
         (log.open(QFile::ReadOnly) ? QString::fromUtf8(log.readAll()) : QString());
}

void PrintServer::AddQueue(const QString& name) {
  EXPECT_TRUE(Run("lpadmin", {"-p", name, "-E", "-v", "file:/dev/null", "-m", "raw"}));
}

void PrintServer::RemoveQueue(const QString& name) { EXPECT_TRUE(Run("lpadmin", {"-x", name})); }
void PrintServer::MakeDefault(const QString& queue) { EXPECT_TRUE(Run("lpadmin", {"-d", queue})); }
void PrintServer::Reject(const QString& queue) { EXPECT_TRUE(Run("cupsreject", {queue})); }
void PrintServer::Accept(const QString& queue) { EXPECT_TRUE(Run("cupsaccept", {queue})); }

QStringList PrintServer::Jobs() const {
  const QDir spool(folder_.filePath("spool"));
  QStringList files;
  for (const QString& name : spool.entryList({"d*-001"}, QDir::Files, QDir::Name)) {
    files.append(spool.filePath(name));
  }
  return files;
}

QString PrintServer::QueueOf(qsizetype index) const {
  const auto answer = AskForJob(JobNumber(Jobs().at(index)));
  const QString address =
      ippGetString(ippFindAttribute(answer.get(), "job-printer-uri", IPP_TAG_URI), 0, nullptr);
  return address.section('/', -1);
}

int PrintServer::CopiesOf(qsizetype index) const {
  const auto answer = AskForJob(JobNumber(Jobs().at(index)));
  ipp_attribute_t* const copies = ippFindAttribute(answer.get(), "copies", IPP_TAG_INTEGER);
  return copies == nullptr ? 1 : ippGetInteger(copies, 0);  // one copy goes without saying
}

}  // namespace velta
