// SPDX-License-Identifier: MIT
/// Writes a made-up LAN file of any size, to try the program on and to measure it with.
#include "lanfile/lanfile.h"
#include "runtime/messagebox.h"
#include "tools/samplelan.h"

#include <QFile>

#include <charconv>
#include <cstdio>
#include <optional>
#include <string_view>
#include <vector>

namespace {

struct Request {
  int devices = 0;
  int links = 0;
  vnb::Shape shape = vnb::Shape::Normal;
  QString path = QStringLiteral("/dev/stdout");
};

std::optional<int> number(std::string_view text, int least) {
  int value = 0;
  const char *const end = text.data() + text.size();
  const auto [stop, fault] = std::from_chars(text.data(), end, value);
  if (fault != std::errc() || stop != end || value < least)
    return {};
  return value;
}

std::optional<Request> parse(const std::vector<std::string_view> &words) {
  if (words.size() < 2)
    return {};
  const std::optional<int> devices = number(words[0], 1);
  const std::optional<int> links = number(words[1], 0);
  if (!devices || !links)
    return {};
  Request request{.devices = *devices, .links = *links};
  for (std::size_t i = 2; i < words.size(); ++i) {
    if (words[i] == "--locks")
      request.shape = vnb::Shape::Locks;
    else if (words[i] == "--star")
      request.shape = vnb::Shape::Star;
    else if (words[i] == "--any")
      request.shape = vnb::Shape::Any;
    else if (words[i] == "-o" && i + 1 < words.size())
      request.path = QFile::decodeName(words[++i].data());
    else
      return {};
  }
  return request;
}

/// Writes the document and returns whether all of it has arrived.
bool save(const QString &path) {
  bool failed = false;
  vnb::showMessageBox = [&failed](const vnb::MessageBox &box) {
    failed = true;
    std::fprintf(stderr, "generate-lan: %s\n", qUtf8Printable(box.text));
    return vnb::Answer::No;
  };
  vnb::SaveLAN(path);
  return !failed;
}

} // namespace

int main(int argc, char **argv) {
  const std::optional<Request> request = parse({argv + 1, argv + argc});
  if (!request) {
    std::fputs("usage: generate-lan DEVICES LINKS [--locks | --star | --any] [-o FILE]\n"
               "Writes a LAN file to FILE, or to the standard output, which must be a file then.\n",
               stderr);
    return 2;
  }
  vnb::DocumentOperations operations;
  vnb::makeLan(operations, request->devices, request->links, request->shape);
  return save(request->path) ? 0 : 1;
}
