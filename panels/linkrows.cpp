// SPDX-License-Identifier: MIT
#include "panels/linkrows.h"

#include "document/displaynames.h"
#include "document/modDeclares.h"
#include "runtime/at.h"

namespace vnb {

std::vector<NumberRow> linkRows(std::int32_t lIndex) {
  const std::vector<std::int32_t> links = RetrieveLinks(lIndex);
  std::vector<NumberRow> rows;
  rows.reserve(links.size() - 1);
  for (std::size_t i = 1; i < links.size(); ++i) {
    const LinkRec &link = at(Links, links[i]);
    rows.push_back(
        {.name = linkKind(link, lIndex), .number = links[i], .shown = otherEnd(link, lIndex)});
  }
  return rows;
}

} // namespace vnb
