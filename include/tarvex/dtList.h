// A small singly linked list of untyped pointers. The list owns its nodes, never the data they point at.
#pragma once

#include <memory>

#include "tarvex/tarvexExport.h"

class TARVEX_EXPORT DtListItem {
 public:
  // A node pointing at data, which it does not own.
  explicit DtListItem(void* data) : data_(data) {}
  // The data, and the next node (null at the tail).
  void* data() const { return data_; }
  DtListItem* next() const { return next_.get(); }

 private:
  friend class DtList;
  void* data_;
  std::unique_ptr<DtListItem> next_;
};

// The list: items in insertion order, each pointing at data the caller keeps.
class TARVEX_EXPORT DtList {
 public:
  DtList() = default;
  ~DtList();
  DtList(const DtList&) = delete;
  DtList& operator=(const DtList&) = delete;

  // Appends at the tail.
  void add(void* data);
  // Inserts after the given node; a null node inserts at the head.
  void addAfter(DtListItem* item, void* data);
  // The head and the tail node, null when the list is empty.
  DtListItem* first() const { return head_.get(); }
  DtListItem* last() const { return tail_; }
  // Unlinks and frees the node and returns its data; an item not in the list changes nothing and gives null.
  void* remove(DtListItem* item);
  // How many nodes the list holds.
  int count() const { return count_; }

 private:
  std::unique_ptr<DtListItem> head_;
  DtListItem* tail_ = nullptr;
  int count_ = 0;
};
