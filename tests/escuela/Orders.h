#pragma once

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace quorvane::test {

using Order = std::vector<std::string>;

/// Every order of the school's tool with its arguments, as words in which S, N and C stand for
/// paths.
inline std::vector<Order> AllOrders() {
  std::vector<Order> orders;
  std::ifstream file(QUORVANE_ORDERS);
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with('#')) continue;
    std::istringstream words(line);
    Order order;
    for (std::string word; words >> word;) order.push_back(word);
    orders.push_back(order);
  }
  return orders;
}

/// The same in front of its paths: a school's, one that is free, and one of a file to import.
inline Order WithPaths(Order order, const std::string& school, const std::string& free,
                       const std::string& csv) {
  for (auto& word : order) {
    if (word == "S") word = school;
    if (word == "C") word = csv;
    if (word == "N" || word.starts_with("N.")) word = free + word.substr(1);
  }
  return order;
}

/// Its words as the shell takes them.
inline std::string ForShell(const Order& order) {
  std::string words;
  for (const auto& word : order) words += " '" + word + "'";
  return words;
}

}  // namespace quorvane::test
