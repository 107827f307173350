#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

#include "text/Text.h"

namespace norvo {

/// How a playlist file is written, whatever its name says.
enum class ListSyntax {
  Asx,
  M3u,
  Pls,
  Wpl,  ///< SMIL: .wpl and .zpl
  Xspf,
  B4s,
  ITunes  ///< a library with any number of lists
};

/// One item that a playlist lists, as a tolerant player would find it there.
struct ListedItem {
  /// As written, without blanks around them; none is empty, and there is at least one. Several are
  /// alternatives in order of preference, as an ASX entry with more than one Ref has them.
  std::vector<String> references;
  String title;   ///< this and the names below as the playlist tells them, else empty
  String artist;  ///< of an ASX entry the author when no artist is told
  String album;
  String genre;
  int track = 0;       ///< 1-based number on the album; 0: not told
  double seconds = 0;  ///< length; 0: not told
  /// A line of an M3U that starts with "#": an item only when there is such a file.
  bool maybeComment = false;
};

/// Items in their order. The lists of a library share those that stand in several of them.
class ListedItems {
 public:
  using Shared = std::shared_ptr<const ListedItem>;

  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = ListedItem;
    using difference_type = std::ptrdiff_t;
    using pointer = const ListedItem*;
    using reference = const ListedItem&;

    explicit Iterator(const Shared* at) : at_(at) {}
    reference operator*() const { return **at_; }
    pointer operator->() const { return at_->get(); }
    Iterator& operator++() { return ++at_, *this; }
    Iterator operator++(int) { return Iterator(at_++); }
    bool operator==(const Iterator&) const = default;

   private:
    const Shared* at_;
  };

  /// Adds an item of its own, to be filled at once.
  ListedItem& Add(ListedItem item = {}) {
    const auto added = std::make_shared<ListedItem>(std::move(item));
    items_.push_back(added);
    return *added;
  }
  /// Adds an item that other lists have as well; never null.
  void Share(Shared item) { items_.push_back(std::move(item)); }
  void RemoveLast() { items_.pop_back(); }

  std::size_t size() const { return items_.size(); }
  bool empty() const { return items_.empty(); }
  const ListedItem& operator[](std::size_t i) const { return *items_[i]; }
  const ListedItem& front() const { return *items_.front(); }
  Iterator begin() const { return Iterator(items_.data()); }
  Iterator end() const { return Iterator(items_.data() + items_.size()); }

 private:
  std::vector<Shared> items_;
};

/// A list and what it holds, in its order.
struct ListedList {
  String name;  ///< as the file tells it; empty when it tells none
  ListedItems items;
  bool isCut = false;  ///< more were listed, and are left out
};

/// Nobody's list has so many; a file made to fill the memory shall not.
inline constexpr std::size_t kMostListedItems = 100'000;
inline constexpr const char16_t* kTooManyItems =
    u"it lists more than 100000 songs, or its library is too large";

/// Nobody's library has so many lists. One more is read, which tells that there are more.
inline constexpr std::size_t kMostLists = 10'000;

/// The lists of a text: exactly one, but of an iTunes library each that its user made. What a
/// player would play, in its order; what follows the first `most` items of a list is left out.
/// Looks at no disk; any text will do, and takes time and memory in proportion to its length.
std::vector<ListedList> ReadLists(StringView text, ListSyntax syntax,
                                  std::size_t most = kMostListedItems);

/// The items of all lists of a text, one after the other.
std::vector<ListedItem> ListItems(StringView text, ListSyntax syntax,
                                  std::size_t most = kMostListedItems);

}  // namespace norvo
