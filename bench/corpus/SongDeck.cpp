#include "SongDeck.h"

#include <utility>

namespace norvo::bench {

SongDeck::SongDeck(const std::vector<Song>& songs, Random& random) : random_(random) {
  cards_.reserve(songs.size());
  for (const Song& song : songs) cards_.push_back(&song);
}

std::vector<const Song*> SongDeck::Deal(std::size_t count) {
  std::vector<const Song*> hand;
  if (cards_.empty()) return hand;
  hand.reserve(count);
  while (hand.size() < count) hand.push_back(DealOne());
  return hand;
}

const Song* SongDeck::DealOne() {
  if (dealt_ == cards_.size()) dealt_ = 0;
  std::swap(cards_[dealt_], cards_[random_.Between(dealt_, cards_.size() - 1)]);
  return cards_[dealt_++];
}

}  // namespace norvo::bench
