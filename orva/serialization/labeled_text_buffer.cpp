#include "orva/serialization/labeled_text_buffer.hpp"

#include <stdexcept>
#include <utility>
#include <vector>

#include "orva/generic/abilities/alloc_detection_ability.hpp"
#include "orva/serialization/internal/flat_form_reader.hpp"
#include "orva/serialization/internal/flat_form_writer.hpp"
#include "orva/serialization/internal/labeled_contents.hpp"
#include "orva/serialization/internal/trimmed_label.hpp"
#include "orva/serialization/stored_buffer.hpp"

namespace ORVA_NAMESPACE::serialization {

using generic::abilities::create_dynamic;
using types::nil;
using types::variant;

namespace {

std::string trimmed(const std::string& label) { return std::string(_private::trimmed_label(label)); }

}  // namespace

labeled_serialize_buffer::~labeled_serialize_buffer() = default;

void labeled_text_buffer::destroy_contents::operator()(contents* root) const noexcept {
  for (contents* doomed = root; doomed != nullptr;) {
    contents* const current = doomed;
    doomed = current->next;
    for (auto& [label, stored] : current->entries) {
      contents* const group = stored.group.contents_.release();
      if (group != nullptr) group->next = std::exchange(doomed, group);
    }
    delete current;
  }
}

labeled_text_buffer::labeled_text_buffer() noexcept = default;
labeled_text_buffer::labeled_text_buffer(const std::string& text) { labeled_text_buffer::assign(text); }
labeled_text_buffer::labeled_text_buffer(const labeled_text_buffer& other)
    : labeled_serialize_buffer(other), contents_(copy(other.contents_.get())) {}
labeled_text_buffer::labeled_text_buffer(labeled_text_buffer&& other) noexcept
    : labeled_serialize_buffer(other), contents_(std::move(other.contents_)) {}
labeled_text_buffer::~labeled_text_buffer() = default;

labeled_text_buffer& labeled_text_buffer::operator=(labeled_text_buffer&& other) noexcept {
  // Moved to a local first: `other` may be a group of this buffer.
  owned_contents taken = std::move(other.contents_);
  contents_ = std::move(taken);
  return *this;
}

/// Copies the entries of one group after another, without recursion.
labeled_text_buffer::owned_contents labeled_text_buffer::copy(const contents* source) {
  if (source == nullptr) return nullptr;
  owned_contents root(new contents);
  std::vector<std::pair<const contents*, contents*>> open{{source, root.get()}};
  while (!open.empty()) {
    const auto [from, to] = open.back();
    open.pop_back();
    for (const auto& [label, stored] : from->entries) {
      const auto made = to->entries.try_emplace(to->entries.end(), label, stored.value);
      if (stored.group.is_empty()) continue;
      made->second.group.contents_.reset(new contents);
      open.emplace_back(stored.group.contents_.get(), made->second.group.contents_.get());
    }
  }
  return root;
}

labeled_text_buffer& labeled_text_buffer::assign(const char* data, int length) {
  if (length < 0) throw std::length_error("string too long");
  return assign(std::string(data, static_cast<std::size_t>(length)));
}

labeled_text_buffer& labeled_text_buffer::assign(const std::string& text) {
  if (text.size() > stored_buffer::max_size) throw std::length_error("string too long");
  // Copied first: the text may belong to a group that is destroyed with the old content.
  owned_contents made(new contents);
  made->text = text;
  contents_ = std::move(made);
  _private::read_flat_form(contents_->text, *this);
  return *this;
}

labeled_text_buffer& labeled_text_buffer::assign(const labeled_serialize_buffer& other) {
  return assign(other.as_str());
}

labeled_text_buffer& labeled_text_buffer::assign(const labeled_text_buffer& other) {
  if (this != &other) contents_ = copy(other.contents_.get());
  return *this;
}

const std::string& labeled_text_buffer::as_str() const {
  static const std::string nothing;
  if (is_empty()) return nothing;
  const auto text_of = [](const variant& value) { return value.as_string(); };
  _private::flat_form_writer(contents_->text, text_of).write(contents_->entries);
  return contents_->text;
}

labeled_text_buffer::contents& labeled_text_buffer::filled() {
  if (contents_ == nullptr) contents_.reset(new contents);
  return *contents_;
}

labeled_serialize_buffer::result_type labeled_text_buffer::add_value(const std::string& label,
                                                                     const variant& value) {
  const auto [stored, is_new] = filled().entries.try_emplace(trimmed(label), value);
  if (is_new) return label_set;
  const bool had_value = !stored->second.value.equal(nil);
  stored->second.value = value;
  return had_value ? label_replaced : label_set;
}

labeled_text_buffer* labeled_text_buffer::create_group(const std::string& label) {
  const auto [stored, is_new] = filled().entries.try_emplace(trimmed(label), variant());
  stored->second.group.contents_.reset();
  return &stored->second.group;
}

const labeled_text_buffer::entry* labeled_text_buffer::find(const std::string& label) const {
  if (contents_ == nullptr) return nullptr;
  const auto found = contents_->entries.find(label);
  return found != contents_->entries.end() ? &found->second : nullptr;
}

bool labeled_text_buffer::has_label(const std::string& label) const { return find(label) != nullptr; }

bool labeled_text_buffer::has_value(const std::string& label) const {
  const entry* stored = find(label);
  return stored != nullptr && !stored->value.equal(nil);
}

bool labeled_text_buffer::has_group(const std::string& label) const {
  const labeled_text_buffer* group = retrieve_group(label);
  return group != nullptr && !group->is_empty();
}

bool labeled_text_buffer::is_empty() const { return contents_ == nullptr || contents_->entries.empty(); }

variant labeled_text_buffer::retrieve_value(const std::string& label) {
  return std::as_const(*this).retrieve_value(label);
}

variant labeled_text_buffer::retrieve_value(const std::string& label) const {
  const entry* stored = find(label);
  return stored != nullptr ? stored->value : variant();
}

labeled_text_buffer* labeled_text_buffer::retrieve_group(const std::string& label) {
  return const_cast<labeled_text_buffer*>(std::as_const(*this).retrieve_group(label));
}

const labeled_text_buffer* labeled_text_buffer::retrieve_group(const std::string& label) const {
  const entry* stored = find(label);
  return stored != nullptr ? &stored->group : nullptr;
}

const std::map<std::string, labeled_text_buffer::entry>& labeled_text_buffer::entries() const {
  static const std::map<std::string, entry> nothing;
  return contents_ != nullptr ? contents_->entries : nothing;
}

void labeled_text_buffer::overlay(const labeled_text_buffer& other) {
  struct layer {
    labeled_text_buffer* below;
    owned_contents above;
  };
  // A copy of the other buffer, whose entries can be moved out, and which does not change with this one.
  std::vector<layer> open;
  open.push_back({this, copy(other.contents_.get())});
  while (!open.empty()) {
    const auto [below, above] = std::move(open.back());
    open.pop_back();
    while (above != nullptr && !above->entries.empty()) {
      auto laid = below->filled().entries.insert(above->entries.extract(above->entries.begin()));
      if (laid.inserted) continue;
      entry& here = laid.position->second;
      entry& there = laid.node.mapped();
      if (there.group.is_empty() || !there.value.equal(nil)) here.value = there.value;
      if (!there.group.is_empty()) open.push_back({&here.group, std::move(there.group.contents_)});
    }
  }
}

labeled_text_buffer* labeled_text_buffer::create() const { return create_dynamic<labeled_text_buffer>(); }

labeled_text_buffer* labeled_text_buffer::clone() const { return create_dynamic<labeled_text_buffer>(*this); }

// On Windows a program that refers to it by its address imports it.
constexpr std::size_t labeled_text_buffer::max_reread;

}  // namespace ORVA_NAMESPACE::serialization
