// SPDX-License-Identifier: MIT
// Memory that the plug-in lends to the host. A resource is one heap block with its release rule, a
// collection keeps resources alive together, and the pool keeps collections alive until the host
// says that it has finished with them (ExportedCallDrop).
//
//     __ResourceCollection__ texts;
//     MakeCString(name, record.name, texts);   // freed with `texts`
//
// The control-bar side and the server-API side have types of their own, which never mix.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

#include "common/singleton.h"

namespace VELLOMAR_COMMON {

// `Side` only keeps the two families of types apart.
template <typename Side>
class ResourceBase {
 public:
  ResourceBase() = default;
  ResourceBase(const ResourceBase&) = delete;
  ResourceBase& operator=(const ResourceBase&) = delete;
  virtual ~ResourceBase() = default;
};

// Owns a block from malloc.
template <typename Side, typename T>
class PointerResource : public ResourceBase<Side> {
 public:
  explicit PointerResource(T* block) : m_block(block) {}
  ~PointerResource() override { std::free(m_block); }

 private:
  T* m_block;
};

template <typename Side>
class ResourceCollection {
 public:
  ResourceCollection() = default;
  ResourceCollection(const ResourceCollection&) = delete;
  ResourceCollection& operator=(const ResourceCollection&) = delete;

  void Reserve(std::size_t count) { m_resources.reserve(count); }
  void Add(std::shared_ptr<ResourceBase<Side>> resource) {
    m_resources.push_back(std::move(resource));
  }

 private:
  std::vector<std::shared_ptr<ResourceBase<Side>>> m_resources;
};

// A NUL-terminated copy of `text` from malloc. A zero byte inside the text ends it: the rest of the
// block is zero. Memory that runs out ends the process.
char* CopyToCString(std::string_view text);

template <typename Side>
void MakeCString(std::string_view text, const char*& out, ResourceCollection<Side>& collection) {
  std::unique_ptr<char, decltype(&std::free)> block(CopyToCString(text), &std::free);
  auto resource = std::make_shared<PointerResource<Side, char>>(block.get());
  out = block.release();
  collection.Add(std::move(resource));
}

}  // namespace VELLOMAR_COMMON

namespace VELLOMAR_SERVER_API {

struct ServerApiSide;
using __ResourceBase__ = VELLOMAR_COMMON::ResourceBase<ServerApiSide>;
template <typename T>
using __PointerResource__ = VELLOMAR_COMMON::PointerResource<ServerApiSide, T>;
using __ResourceCollection__ = VELLOMAR_COMMON::ResourceCollection<ServerApiSide>;
using VELLOMAR_COMMON::MakeCString;

}  // namespace VELLOMAR_SERVER_API

namespace VELLOMAR_CONTROLBAR {

struct ControlbarSide;
using __ResourceBase__ = VELLOMAR_COMMON::ResourceBase<ControlbarSide>;
template <typename T>
using __PointerResource__ = VELLOMAR_COMMON::PointerResource<ControlbarSide, T>;
using __ResourceCollection__ = VELLOMAR_COMMON::ResourceCollection<ControlbarSide>;
using VELLOMAR_COMMON::MakeCString;

// What the answers to the Sync commands point to, by event id. Lives until the library is unloaded.
// [loop thread]
class __ResourceCollectionPool__ : public VELLOMAR_COMMON::Singleton<__ResourceCollectionPool__> {
 public:
  using Collections = std::map<std::uint64_t, std::shared_ptr<__ResourceCollection__>>;
  using Entry = Collections::node_type;

  // An empty collection to be stored under the key. Adding it cannot fail.
  static Entry MakeEntry(std::uint64_t key) {
    Collections made;
    made.emplace(key, std::make_shared<__ResourceCollection__>());
    return made.extract(key);
  }
  // Replaces, and so releases, what is stored under the same key.
  void Add(Entry entry) {
    auto added = m_collections.insert(std::move(entry));
    if (!added.inserted) {
      added.position->second = std::move(added.node.mapped());
    }
  }
  // The number of collections released: 0 or 1.
  std::size_t Drop(std::uint64_t key) { return m_collections.erase(key); }

 private:
  Collections m_collections;
};

}  // namespace VELLOMAR_CONTROLBAR
