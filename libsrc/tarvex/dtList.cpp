#include "tarvex/dtList.h"

DtList::~DtList() {
  // Unlink iteratively so that a long list cannot exhaust the stack through nested destructors.
  while (head_) head_ = std::move(head_->next_);
}

void DtList::add(void* data) { addAfter(tail_, data); }

void DtList::addAfter(DtListItem* item, void* data) {
  auto node = std::make_unique<DtListItem>(data);
  DtListItem* raw = node.get();
  std::unique_ptr<DtListItem>& link = item ? item->next_ : head_;
  node->next_ = std::move(link);
  link = std::move(node);
  if (raw->next_ == nullptr) tail_ = raw;
  ++count_;
}

void* DtList::remove(DtListItem* item) {
  DtListItem* previous = nullptr;
  for (std::unique_ptr<DtListItem>* link = &head_; *link; link = &(*link)->next_) {
    if (link->get() != item) {
      previous = link->get();
      continue;
    }
    void* data = item->data_;
    const bool wasTail = tail_ == item;
    *link = std::move(item->next_);
    if (wasTail) tail_ = previous;
    --count_;
    return data;
  }
  return nullptr;
}
