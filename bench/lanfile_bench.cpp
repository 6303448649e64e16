// SPDX-License-Identifier: MIT
/// LAN files read and written, beside the plainest code that moves the same bytes and numbers.
#include "bench/sizes.h"
#include "lanfile/lanfile.h"
#include "tools/samplelan.h"

#include <QFile>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <type_traits>
#include <unistd.h>
#include <vector>

namespace vnb::bench {
namespace {

/// A file in memory, so that no disk is measured; gone with the object.
class MemoryFile {
public:
  MemoryFile() : m_path("/dev/shm/vnb-bench-" + std::to_string(::getpid()) + ".txt") {}
  ~MemoryFile() { ::unlink(m_path.c_str()); }
  MemoryFile(const MemoryFile &) = delete;
  MemoryFile &operator=(const MemoryFile &) = delete;

  const char *path() const { return m_path.c_str(); }
  QString name() const { return QFile::decodeName(path()); }

private:
  std::string m_path;
};

struct PlainSystem {
  int type, x, y, secur, data1, data2, data3;
};

struct PlainLink {
  int from;
  double fromX, fromY;
  int to;
  double toX, toY;
  int secur;
};

struct PlainLan {
  std::vector<PlainSystem> systems;
  std::vector<PlainLink> links;
};

void makeDocument(int size, Shape shape) {
  DocumentOperations operations;
  makeLan(operations, size, size, shape);
}

/// The floor of reading: one read, then every number of the rows, one after the other.
class PlainReader {
public:
  explicit PlainReader(const char *path) { readAll(path); }

  PlainLan read() {
    PlainLan lan;
    for (int header = 0; header < 5; ++header)
      skipLine();
    while (toRow()) {
      skipWord();
      skipWord();
      PlainSystem &system = lan.systems.emplace_back();
      for (int *value :
           {&system.x, &system.y, &system.secur, &system.data1, &system.data2, &system.data3})
        take(*value);
      skipLine();
    }
    while (toRow()) {
      skipWord();
      PlainLink &link = lan.links.emplace_back();
      take(link.from);
      take(link.fromX);
      take(link.fromY);
      take(link.to);
      take(link.toX);
      take(link.toY);
      take(link.secur);
      skipLine();
    }
    return lan;
  }

private:
  void readAll(const char *path) {
    const int handle = ::open(path, O_RDONLY);
    struct stat status {};
    ::fstat(handle, &status);
    const auto size = static_cast<std::size_t>(status.st_size);
    m_bytes.reset(new char[size]);
    m_at = m_bytes.get();
    m_end = m_at + std::max<ssize_t>(::read(handle, m_bytes.get(), size), 0);
    ::close(handle);
  }

  void skipLine() {
    const void *found = std::memchr(m_at, '\n', static_cast<std::size_t>(m_end - m_at));
    m_at = found != nullptr ? static_cast<const char *>(found) + 1 : m_end;
  }

  /// Goes to the next row. False at the end of the table, which is left behind.
  bool toRow() {
    while (m_at != m_end && (*m_at == ';' || *m_at == '\r'))
      skipLine();
    if (m_at != m_end && *m_at != '.')
      return true;
    skipLine();
    return false;
  }

  void skipWord() {
    while (*m_at == ' ')
      ++m_at;
    while (*m_at != ' ')
      ++m_at;
  }

  template <class Number>
  void take(Number &number) {
    while (*m_at == ' ')
      ++m_at;
    m_at = std::from_chars(m_at, m_end, number).ptr;
  }

  std::unique_ptr<char[]> m_bytes; // NOLINT(*-avoid-c-arrays): left uninitialised on purpose
  const char *m_at = nullptr;
  const char *m_end = nullptr;
};

/// The floor of writing: the rows of the document in one buffer, then one write.
class PlainWriter {
public:
  explicit PlainWriter(const PlainLan &lan)
      : m_bytes(new char[(lan.systems.size() + lan.links.size()) * 128]), m_at(m_bytes.get()) {
    for (std::size_t i = 0; i < lan.systems.size(); ++i)
      add(static_cast<int>(i), lan.systems[i]);
    for (const PlainLink &link : lan.links)
      add(link);
  }

  void write(const char *path) const {
    const int handle = ::open(path, O_WRONLY | O_CREAT | O_TRUNC, 0666);
    const auto size = static_cast<std::size_t>(m_at - m_bytes.get());
    benchmark::DoNotOptimize(::write(handle, m_bytes.get(), size));
    ::close(handle);
  }

private:
  void add(std::string_view text) {
    std::memcpy(m_at, text.data(), text.size());
    m_at += text.size();
  }

  template <class Number>
  requires std::is_arithmetic_v<Number>
  void add(Number number) { m_at = std::to_chars(m_at, m_at + 32, number).ptr; }

  template <class Value>
  void column(Value value, std::ptrdiff_t width) {
    char *const start = m_at;
    add(value);
    do
      *m_at++ = ' ';
    while (m_at - start < width);
  }

  void add(int number, const PlainSystem &system) {
    column(number, 8);
    column(FileWord(system.type), 16);
    for (const int value : {system.x, system.y, system.secur, system.data1, system.data2})
      column(value, 8);
    add(system.data3);
    add("\r\n");
  }

  void add(const PlainLink &link) {
    add("LINK    ");
    column(link.from, 8);
    column(link.fromX, 8);
    column(link.fromY, 8);
    column(link.to, 4);
    column(link.toX, 8);
    column(link.toY, 8);
    add(link.secur);
    add("\r\n");
  }

  std::unique_ptr<char[]> m_bytes; // NOLINT(*-avoid-c-arrays): left uninitialised on purpose
  char *m_at;
};

PlainLan plainCopy() {
  PlainLan lan;
  for (const SystemRec &s : Systems)
    lan.systems.push_back({s.lType, s.lX, s.lY, s.lSecur, s.lData1, s.lData2, s.lData3});
  for (std::size_t i = 1; i < Links.size(); ++i) {
    const LinkRec &l = Links[i];
    lan.links.push_back({l.lFrom, l.dFromX, l.dFromY, l.lTo, l.dToX, l.dToY, l.lSecur});
  }
  return lan;
}

void readOurs(benchmark::State &state, Shape shape) {
  const MemoryFile file;
  makeDocument(static_cast<int>(state.range(0)), shape);
  SaveLAN(file.name());
  DocumentOperations operations;
  ReaderView view;
  for (auto _ : state)
    OpenLANFile(file.name(), operations, view);
  if (UBound(Links) != state.range(0))
    state.SkipWithError("links were lost");
}

void readFloor(benchmark::State &state, Shape shape) {
  const MemoryFile file;
  makeDocument(static_cast<int>(state.range(0)), shape);
  SaveLAN(file.name());
  PlainLan lan;
  for (auto _ : state)
    benchmark::DoNotOptimize(lan = PlainReader(file.path()).read());
  if (static_cast<std::int64_t>(lan.links.size()) != state.range(0))
    state.SkipWithError("links were lost");
}

void writeOurs(benchmark::State &state) {
  const MemoryFile file;
  makeDocument(static_cast<int>(state.range(0)), Shape::Normal);
  for (auto _ : state)
    SaveLAN(file.name());
}

void writeFloor(benchmark::State &state) {
  const MemoryFile file;
  makeDocument(static_cast<int>(state.range(0)), Shape::Normal);
  const PlainLan lan = plainCopy();
  for (auto _ : state)
    PlainWriter(lan).write(file.path());
}

BENCHMARK_CAPTURE(readOurs, , Shape::Normal)->Name("Read/ours")->Apply(sizes);
BENCHMARK_CAPTURE(readFloor, , Shape::Normal)->Name("Read/floor")->Apply(sizes);
BENCHMARK_CAPTURE(readOurs, , Shape::Locks)->Name("ReadLocks/ours")->Apply(sizes);
BENCHMARK_CAPTURE(readFloor, , Shape::Locks)->Name("ReadLocks/floor")->Apply(sizes);
BENCHMARK_CAPTURE(readOurs, , Shape::Star)->Name("ReadStar/ours")->Apply(sizes);
BENCHMARK_CAPTURE(readFloor, , Shape::Star)->Name("ReadStar/floor")->Apply(sizes);
BENCHMARK(writeOurs)->Name("Write/ours")->Apply(sizes);
BENCHMARK(writeFloor)->Name("Write/floor")->Apply(sizes);

} // namespace
} // namespace vnb::bench
