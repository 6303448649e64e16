// SPDX-License-Identifier: MIT
#include "support.h"

#include <sstream>

namespace vnb::test {
namespace {

std::string shortText(const MessageBox &box) {
  std::string text = box.text.toStdString();
  if (box.title != u"Error!" || !text.starts_with("Error "))
    return text;
  const std::size_t number = text.find(" occurred in ");
  return text.substr(6, number - 6) + " " + text.substr(number + 13, text.find('!') - number - 13);
}

template <class T, class Row>
std::string rows(const std::vector<T> &array, std::size_t first, Row addRow) {
  std::ostringstream out;
  for (std::size_t i = first; i < array.size(); ++i) {
    out << (i > first ? ";" : "");
    addRow(out, array[i]);
  }
  return out.str();
}

} // namespace

std::vector<std::pair<std::string, std::string>> sides(const Words &rows) {
  std::vector<std::pair<std::string, std::string>> result;
  for (const std::string &row : rows) {
    const std::size_t arrow = row.rfind(" -> ");
    result.emplace_back(row.substr(0, arrow), row.substr(arrow + 4));
  }
  return result;
}

Boxes::Boxes(std::vector<Answer> answers) : m_answers(std::move(answers)) {
  showMessageBox = [this](const MessageBox &box) {
    boxes.push_back(box);
    texts.push_back(shortText(box));
    const std::size_t index = texts.size() - 1;
    return index < m_answers.size() ? m_answers[index] : otherwise;
  };
}

Boxes::~Boxes() {
  showMessageBox = [](const MessageBox &) { return Answer::No; };
}

std::vector<Answer> yes(int count) {
  return std::vector<Answer>(static_cast<std::size_t>(count), Answer::Yes);
}

std::string dumpSystems() {
  return rows(Systems, 0, [](std::ostream &out, const SystemRec &s) {
    out << FileWord(s.lType) << ' ' << s.lX << ' ' << s.lY << ' ' << s.lSecur << ' ' << s.lData1
        << ' ' << s.lData2 << ' ' << s.lData3;
    if (!s.sDataX.isEmpty())
      out << " '" << s.sDataX.toStdString() << "'";
  });
}

std::string dumpLinks() {
  return rows(Links, 1, [](std::ostream &out, const LinkRec &l) {
    out << l.lFrom << '@' << l.dFromX << ',' << l.dFromY << '-' << l.lTo << '@' << l.dToX << ','
        << l.dToY << '/' << l.lSecur;
  });
}

std::string dumpSubnets() {
  return rows(Subnets, 1,
              [](std::ostream &out, const SubnetRec &s) { out << s.lFor << '<' << s.lFrom; });
}

std::string dumpData() {
  return rows(DataItems, 1, [](std::ostream &out, const DataRec &d) {
    out << d.lNum << "='" << d.sText.toStdString() << "'";
  });
}

std::string dump() {
  std::ostringstream out;
  out << LanHeader.NAME.toStdString() << ',' << LanHeader.COMPANY.toStdString() << ','
      << LanHeader.IP.toStdString() << ',' << LanHeader.XPOS << ',' << LanHeader.YPOS << '|'
      << dumpSystems() << '|' << dumpLinks() << '|' << dumpSubnets() << '|' << dumpData();
  return out.str();
}

QString Folder::file(const QByteArray &bytes, const char *name) const {
  QFile file(path(name));
  if (file.open(QIODevice::WriteOnly))
    file.write(bytes);
  return file.fileName();
}

QByteArray Folder::bytes(const QString &path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(can't be opened)");
}

QByteArray crlf(const std::vector<QByteArray> &lines) {
  QByteArray bytes;
  for (const QByteArray &line : lines)
    bytes += line + "\r\n";
  return bytes;
}

QByteArray lanFile(const std::vector<QByteArray> &systemRows,
                   const std::vector<QByteArray> &behind) {
  return crlf({"NAME N", "COMPANY C", "IP 1", "XPOS 2", "YPOS 3", "0 ROUTER 0 0 1 -1 -1 -1"}) +
         crlf(systemRows) + crlf(behind);
}

QString sample(const char *name) {
  return QStringLiteral(VNB_SAMPLES "/") + QString::fromLatin1(name);
}

} // namespace vnb::test
