// SPDX-License-Identifier: MIT
// Each system call by which a file is read or written fails once, and so does each allocation:
// nothing goes wrong untold, and no file opens as something else.
#include "appearance/images.h"
#include "appearance/theme.h"
#include "shell/settings.h"
#include "shellsupport.h"

#include <QHash>
#include <QImage>

#include <gmock/gmock.h>

#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <functional>
#include <new>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

/// What is counted, and the one that fails.
struct Faults {
  bool calls = false;
  bool allocations = false;
  int until = -1; // those before the one that fails
  int count = 0;

  bool next() { return count++ == until; }
};
constinit Faults faults;

/// Calls the system's own function `name`, or fails.
template <class Call, class... Values>
auto call(const char *name, Values... values) {
  if (faults.calls && faults.next())
    return errno = EIO, decltype(std::declval<Call>()(values...)){-1};
  return reinterpret_cast<Call>(dlsym(RTLD_NEXT, name))(values...);
}

using Open = int (*)(const char *, int, ...);

mode_t modeOf(int flags, va_list values) {
  return (flags & O_CREAT) != 0 ? va_arg(values, mode_t) : 0;
}

void *allocate(std::size_t size) {
  return faults.allocations && faults.next() ? nullptr : std::malloc(size == 0 ? 1 : size);
}

} // namespace

// In place of the system's, for this program and all its libraries.
extern "C" {
int open(const char *path, int flags, ...) {
  va_list values;
  va_start(values, flags);
  const mode_t mode = modeOf(flags, values);
  va_end(values);
  return call<Open>("open", path, flags, mode);
}
int open64(const char *path, int flags, ...) {
  va_list values;
  va_start(values, flags);
  const mode_t mode = modeOf(flags, values);
  va_end(values);
  return call<Open>("open64", path, flags, mode);
}
ssize_t read(int handle, void *bytes, size_t size) {
  return call<ssize_t (*)(int, void *, size_t)>("read", handle, bytes, size);
}
ssize_t write(int handle, const void *bytes, size_t size) {
  return call<ssize_t (*)(int, const void *, size_t)>("write", handle, bytes, size);
}
off_t lseek(int handle, off_t at, int from) noexcept {
  return call<off_t (*)(int, off_t, int)>("lseek", handle, at, from);
}
off64_t lseek64(int handle, off64_t at, int from) noexcept {
  return call<off64_t (*)(int, off64_t, int)>("lseek64", handle, at, from);
}
int fstat(int handle, struct stat *status) noexcept {
  return call<int (*)(int, struct stat *)>("fstat", handle, status);
}
int statx(int folder, const char *path, int flags, unsigned mask, struct statx *status) noexcept {
  return call<int (*)(int, const char *, int, unsigned, struct statx *)>("statx", folder, path,
                                                                         flags, mask, status);
}
int fchmod(int handle, mode_t mode) noexcept {
  return call<int (*)(int, mode_t)>("fchmod", handle, mode);
}
int fsync(int handle) {
  return call<int (*)(int)>("fsync", handle);
}
int fdatasync(int handle) {
  return call<int (*)(int)>("fdatasync", handle);
}
int mkdir(const char *path, mode_t mode) noexcept {
  return call<int (*)(const char *, mode_t)>("mkdir", path, mode);
}
int rename(const char *from, const char *to) noexcept {
  return call<int (*)(const char *, const char *)>("rename", from, to);
}
int unlink(const char *path) noexcept {
  return call<int (*)(const char *)>("unlink", path);
}
}

void *operator new(std::size_t size) {
  if (void *const room = allocate(size))
    return room;
  throw std::bad_alloc();
}
void *operator new(std::size_t size, const std::nothrow_t & /*tag*/) noexcept {
  return allocate(size);
}
void operator delete(void *room) noexcept {
  std::free(room);
}
void operator delete(void *room, std::size_t /*size*/) noexcept {
  std::free(room);
}

namespace vnb::test {
namespace {

/// Runs `act` without a fault, and then as often as there are faults to have, with the next one
/// each time and the boxes answered No, or Yes a few times before. `check` is told of the boxes,
/// and whether there was a fault. Returns the number of faults.
int withEach(bool Faults::*kind, const std::function<void()> &before,
             const std::function<void()> &act,
             const std::function<void(const Words &boxes, bool failed)> &check) {
  int count = 0;
  for (int fault = -1; fault < count && !testing::Test::HasFailure(); ++fault)
    for (const int goingOn : {0, 5}) {
      SCOPED_TRACE("fault " + std::to_string(fault) + " of " + std::to_string(count));
      before();
      const Boxes boxes(yes(goingOn));
      faults = {.until = fault};
      faults.*kind = true;
      act();
      const Faults after = std::exchange(faults, {});
      count = fault < 0 ? after.count : count;
      check(boxes.texts, fault >= 0);
    }
  return count;
}

class EveryFault : public testing::Test {
protected:
  /// Opens a LAN with each fault.
  void open(bool Faults::*kind, int least);
  /// Saves it over another file with each.
  void save(bool Faults::*kind, int least);

  Folder folder;
  DocumentOperations operations;
  ReaderView view;
};

void EveryFault::open(bool Faults::*kind, int least) {
  const QString path = sample("company.txt");
  std::string whole;
  const int count = withEach(
      kind, [&] { operations.ClearLAN(); }, [&] { OpenLANFile(path, operations, view); },
      [&](const Words &boxes, bool failed) {
        if (!failed)
          whole = dump();
        EXPECT_TRUE(failed || boxes.empty());
        EXPECT_TRUE(dump() == whole || !boxes.empty());
        EXPECT_FALSE(LoadingFile);
      });
  EXPECT_GE(count, least);
}

void EveryFault::save(bool Faults::*kind, int least) {
  OpenLANFile(sample("company.txt"), operations, view);
  const QByteArray old = Folder::bytes(sample("five-devices.txt"));
  const QString path = folder.path("saved.txt");
  QByteArray whole;
  bool saved = false;
  const int count = withEach(
      kind, [&] { folder.file(old, "saved.txt"); }, [&] { saved = SaveLAN(path); },
      [&](const Words &boxes, bool failed) {
        const QByteArray now = Folder::bytes(path);
        if (!failed)
          whole = now;
        EXPECT_EQ(saved, boxes.empty());
        EXPECT_TRUE(!saved || now == whole);
        if (now == whole || now == old)
          return;
        const Boxes reports;
        OpenLANFile(path, operations, view);
        EXPECT_FALSE(reports.texts.empty());
        OpenLANFile(sample("company.txt"), operations, view);
      });
  EXPECT_GE(count, least);
}

TEST_F(EveryFault, OfACallWhileAFileIsOpened) {
  open(&Faults::calls, 3);
}

TEST_F(EveryFault, OfAnAllocationWhileAFileIsOpened) {
  open(&Faults::allocations, 20);
}

TEST_F(EveryFault, OfACallWhileAFileIsSaved) {
  save(&Faults::calls, 8);
}

TEST_F(EveryFault, OfAnAllocationWhileAFileIsSaved) {
  save(&Faults::allocations, 1);
}

/// A main window that takes every theme.
class Window : public SettingsView {
public:
  void setLeft(std::int32_t /*lLeft*/) override {}
  void setTop(std::int32_t /*lTop*/) override {}
  double Left() const override { return 0; }
  double Top() const override { return 0; }
  void LoadTheme(const QString &sFileName) override { ThemeFile = sFileName; }
};

TEST_F(EveryFault, OfACallWhileSettingsAreRead) {
  qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path(".")));
  folder.file("[Main]\nPosX=75\nTheme=blue\n[Settings]\nGridRes=10\n[Colors]\nGrid=1\n", "VNB.ini");
  Words whole;
  Window window;
  const int count = withEach(
      &Faults::calls, forgetAll, [&] { LoadSettings(window); },
      [&](const Words &boxes, bool failed) {
        if (!failed)
          whole = values();
        EXPECT_TRUE(failed || boxes.empty());
        EXPECT_TRUE(values() == whole || !boxes.empty());
        EXPECT_EQ(window.settingsLeftOut, !boxes.empty()) << "saving would replace what is there";
      });
  EXPECT_GE(count, 3);
}

TEST_F(EveryFault, OfACallWhileSettingsAreWritten) {
  qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path(".")));
  const QByteArray old = "[Other]\nKey=1\n[Settings]\nGridRes=10\n";
  QByteArray whole;
  const Window window;
  forgetAll();
  const int count = withEach(
      &Faults::calls, [&] { folder.file(old, "VNB.ini"); }, [&] { SaveSettings(window); },
      [&](const Words &boxes, bool failed) {
        const QByteArray now = Folder::bytes(folder.path("VNB.ini"));
        if (!failed)
          whole = now;
        EXPECT_TRUE(whole.contains("Key=1") && whole.contains("GridRes=-7"));
        EXPECT_TRUE(now == whole || (now == old && !boxes.empty())) << now.toStdString();
      });
  EXPECT_GE(count, 8);
}

/// All that a theme changes.
std::string look() {
  std::string look = ThemeName.toStdString();
  for (const ColourRow &row : colourRows)
    look += ' ' + std::to_string(*row.colour);
  for (std::int32_t lType = 1; lType <= SystemType::Last; ++lType) {
    const QImage picture = DeviceImages(lType).toImage();
    look +=
        ' ' + std::to_string(qHashBits(picture.constBits(), std::size_t(picture.sizeInBytes())));
  }
  return look;
}

TEST_F(EveryFault, OfACallWhileAThemeIsLoaded) {
  EditorView editor;
  std::string whole;
  std::string error;
  const int count = withEach(
      &Faults::calls, forgetAll,
      [&] {
        error = raised([&] { LoadTheme(QStringLiteral(VNB_THEMES "/light/theme.xml"), editor); });
      },
      [&](const Words & /*boxes*/, bool failed) {
        if (!failed)
          whole = look();
        EXPECT_TRUE(failed || error.empty()) << error;
        EXPECT_TRUE(look() == whole || !error.empty());
      });
  EXPECT_GE(count, 50);
}

} // namespace
} // namespace vnb::test
