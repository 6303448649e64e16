// SPDX-License-Identifier: MIT
#include "document/modDeclares.h"

#include "runtime/report.h"

#include <algorithm>

namespace vnb {

LanHeaderRec LanHeader;
std::vector<SystemRec> Systems(1);
std::vector<LinkRec> Links(1);
std::vector<SubnetRec> Subnets(1);
std::vector<DataRec> DataItems(1);
std::int32_t lSelectedItem = -1;
bool LoadingFile = false;

namespace {

bool touches(const LinkRec &link, std::int32_t system) {
  return link.lFrom == system || link.lTo == system;
}

/// Position of the first entry from 1 on that `matches`, -1 if there is none. The zeroes of element
/// 0 would match the router.
template <class T, class Test>
std::int32_t find(const std::vector<T> &array, Test matches) {
  const auto found = std::find_if(array.begin() + 1, array.end(), matches);
  return found == array.end() ? -1 : static_cast<std::int32_t>(found - array.begin());
}

template <class T>
void remove(const char *procedure, std::vector<T> &array, std::int32_t lIndex) {
  reported("modDeclares", procedure, [&] {
    if (lIndex < 1 || lIndex > UBound(array))
      throw RuntimeError(Fault::SubscriptOutOfRange);
    array.erase(array.begin() + lIndex);
  });
}

} // namespace

std::vector<std::int32_t> RetrieveLinks(std::int32_t lIndex) {
  std::vector<std::int32_t> result{0};
  reported("modDeclares", "RetrieveLinks", [&] {
    for (std::int32_t i = 1; i <= UBound(Links); ++i)
      if (touches(at(Links, i), lIndex))
        result.push_back(i);
  });
  return result;
}

bool SystemHasLinks(std::int32_t lIndex) {
  return find(Links, [lIndex](const LinkRec &link) { return touches(link, lIndex); }) != -1;
}

std::vector<std::int32_t> RetrieveLocks() {
  std::vector<std::int32_t> result{0};
  reported("frmMain", "RetrieveLocks", [&] {
    for (std::int32_t i = 0; i <= UBound(Systems); ++i)
      if (at(Systems, i).lType == SystemType::Lock)
        result.push_back(i);
  });
  return result;
}

std::int32_t FindData(std::int32_t lNum) {
  return find(DataItems, [lNum](const DataRec &data) { return data.lNum == lNum; });
}

std::int32_t FindSubnet(std::int32_t lFor, std::int32_t lFrom) {
  return find(Subnets, [=](const SubnetRec &subnet) {
    return subnet.lFor == lFor && subnet.lFrom == lFrom;
  });
}

void RemoveFromLinkArray(std::int32_t lIndex) {
  remove("RemoveFromLinkArray", Links, lIndex);
}
void RemoveFromSysArray(std::int32_t lIndex) {
  remove("RemoveFromSysArray", Systems, lIndex);
}
void RemoveFromDataArray(std::int32_t lIndex) {
  remove("RemoveFromDataArray", DataItems, lIndex);
}
void RemoveFromSubnetArray(std::int32_t lIndex) {
  remove("RemoveFromSubnetArray", Subnets, lIndex);
}

} // namespace vnb
