// SPDX-License-Identifier: MIT
/// What the tests share: scripted message boxes, a document as short text, files in a folder of
/// their own.
#pragma once

#include "document/operations.h"
#include "lanfile/lanfile.h"
#include "runtime/error.h"
#include "runtime/messagebox.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace vnb::test {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::SizeIs;
using testing::StartsWith;

/// What `act` raises: the number, or the description of an error of the program's own; "" for none.
template <class Act>
std::string raised(Act act) {
  try {
    act();
  } catch (const RuntimeError &error) {
    return error.number() == ownError ? error.description().toStdString()
                                      : std::to_string(error.number());
  }
  return {};
}

using Words = std::vector<std::string>;

/// What stands before and behind the last " -> " of each row.
std::vector<std::pair<std::string, std::string>> sides(const Words &rows);

/// Answers every message box: the scripted answers first, then `otherwise`. A box that was not
/// expected stays in `texts` for the test to find.
class Boxes {
public:
  explicit Boxes(std::vector<Answer> answers = {});
  ~Boxes();
  Boxes(const Boxes &) = delete;
  Boxes &operator=(const Boxes &) = delete;

  /// "9 frmMain.OpenLANFile" for a standard error report, the text for any other box.
  Words texts;
  std::vector<MessageBox> boxes;
  Answer otherwise = Answer::No;

private:
  std::vector<Answer> m_answers;
};

/// `count` times Yes.
std::vector<Answer> yes(int count);

/// The document in short: "header|systems|links|subnets|data", rows separated by ";".
std::string dump();
std::string dumpSystems();
std::string dumpLinks();
std::string dumpSubnets();
std::string dumpData();

/// A folder that goes with the object.
class Folder {
public:
  QString path(const char *name) const { return m_dir.filePath(QString::fromUtf8(name)); }
  /// Makes a file of these bytes and returns its path.
  QString file(const QByteArray &bytes, const char *name = "lan.txt") const;
  static QByteArray bytes(const QString &path);

private:
  QTemporaryDir m_dir;
};

/// `lines` with CR LF behind each.
QByteArray crlf(const std::vector<QByteArray> &lines);

/// A LAN file with these system rows behind the router's, and whatever follows them.
QByteArray lanFile(const std::vector<QByteArray> &systemRows,
                   const std::vector<QByteArray> &behind = {});

QString sample(const char *name);

} // namespace vnb::test
