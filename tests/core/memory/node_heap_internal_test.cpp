// SPDX-License-Identifier: MIT
#include "core/memory/node_heap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <thread>
#include <vector>

#include "core/memory/memory.h"

namespace {

using quarnfc::AllocHeapNode;
using quarnfc::FreeHeapNode;
using quarnfc::kLargestNode;
using quarnfc::NodeClass;
using quarnfc::NodeSize;
using quarnfc::NodeSlabCount;

struct Node {
  unsigned char* bytes;
  std::size_t size;
  unsigned char mark;
};

Node MakeNode(std::size_t size, unsigned char mark) {
  Node node{static_cast<unsigned char*>(AllocHeapNode(size)), size, mark};
  std::memset(node.bytes, mark, size);
  return node;
}

bool IsIntact(const Node& node) {
  return std::all_of(node.bytes, node.bytes + node.size,
                     [&node](unsigned char byte) { return byte == node.mark; });
}

// Frees the nodes and says whether each still held what was written into it.
bool FreeIntact(const std::vector<Node>& nodes) {
  bool intact = true;
  for (const Node& node : nodes) {
    intact = IsIntact(node) && intact;
    FreeHeapNode(node.bytes, node.size);
  }
  return intact;
}

std::vector<Node> MakeNodes(std::size_t count, std::size_t size) {
  std::vector<Node> nodes;
  for (std::size_t i = 0; i < count; ++i) {
    nodes.push_back(MakeNode(size, static_cast<unsigned char>(i)));
  }
  return nodes;
}

}  // namespace

TEST(NodeHeap, EverySizeFitsTheNodesOfItsClassAndNoSmallerClass) {
  for (std::size_t size = 1; size <= kLargestNode; ++size) {
    const std::size_t node_class = NodeClass(size);
    ASSERT_LT(node_class, quarnfc::kNodeClasses) << size;
    EXPECT_GE(NodeSize(node_class), size);
    EXPECT_TRUE(node_class == 0 || NodeSize(node_class - 1) < size) << size;
  }
  EXPECT_EQ(NodeSize(quarnfc::kNodeClasses - 1), kLargestNode);
}

TEST(NodeHeap, NodesAreAlignedAsTheirSizeAllows) {
  for (const std::size_t size : {8, 16, 24, 32, 48, 64, 96, 128, 256}) {
    for (const Node& node : MakeNodes(50, size)) {
      const auto address = reinterpret_cast<std::uintptr_t>(node.bytes);
      EXPECT_EQ(address % (size % 16 == 0 ? 16 : 8), 0u) << size;
      FreeHeapNode(node.bytes, node.size);
    }
  }
}

TEST(NodeHeap, AFreedNodeIsTheNextOneHandedOut) {
  void* node = AllocHeapNode(40);
  FreeHeapNode(node, 40);
  EXPECT_EQ(AllocHeapNode(40), node);
  FreeHeapNode(node, 40);
}

TEST(NodeHeap, LargerNodesComeFromThePlainHeapAndGoBackThere) {
  const std::size_t before = NodeSlabCount();
  for (std::size_t size = kLargestNode - 8; size <= kLargestNode + 8; ++size) {
    void* node = quarnfc::AllocNode(size);
    std::memset(node, 'x', size);
    quarnfc::FreeNode(node, size);
  }
  EXPECT_LE(NodeSlabCount(), before + 1);
}

TEST(NodeHeap, ServesRequestsUpToTheLargestNode) {
  if (quarnfc::kNodesOnPlainHeap) GTEST_SKIP() << "every request goes to the plain heap";
  for (const std::size_t size : {std::size_t{1}, kLargestNode - 1, kLargestNode}) {
    void* node = AllocHeapNode(size);
    FreeHeapNode(node, size);
    EXPECT_EQ(quarnfc::AllocNode(size), node) << size;
    quarnfc::FreeNode(node, size);
    EXPECT_EQ(AllocHeapNode(size), node) << size;
    FreeHeapNode(node, size);
  }
}

TEST(NodeHeap, NodesKeepTheirBytesWhileOthersComeAndGo) {
  std::mt19937 random(1);
  std::vector<Node> nodes;
  for (int i = 0; i < 200'000; ++i) {
    if (nodes.size() < 2000 || random() % 2 == 0) {
      nodes.push_back(MakeNode(1 + random() % kLargestNode, static_cast<unsigned char>(random())));
    }
    if (random() % 2 == 0) {
      std::swap(nodes[random() % nodes.size()], nodes.back());
      ASSERT_TRUE(IsIntact(nodes.back())) << i;
      FreeHeapNode(nodes.back().bytes, nodes.back().size);
      nodes.pop_back();
    }
  }
  EXPECT_TRUE(FreeIntact(nodes));
}

TEST(NodeHeap, GivesMemoryBackWhenManyNodesAreFree) {
  constexpr std::size_t kNodes = 500'000;  // of 48 bytes: some 370 slabs
  EXPECT_TRUE(FreeIntact(MakeNodes(1, 48)));
  const std::size_t before = NodeSlabCount();
  const std::vector<Node> nodes = MakeNodes(kNodes, 48);
  EXPECT_GE(NodeSlabCount(), before + kNodes * 48 / 65536 - 20);
  EXPECT_TRUE(FreeIntact(nodes));
  EXPECT_LE(NodeSlabCount(), before + 20);
}

TEST(NodeHeap, SlabsThatBecameFreeServeOtherSizes) {
  EXPECT_TRUE(FreeIntact(MakeNodes(100'000, 64)));
  const std::size_t before = NodeSlabCount();
  EXPECT_TRUE(FreeIntact(MakeNodes(2'000, 224)));
  EXPECT_LE(NodeSlabCount(), before);
}

TEST(NodeHeapThreads, ANodeMayBeFreedOnAnotherThread) {
  const std::size_t before = NodeSlabCount();
  for (int round = 0; round < 20; ++round) {
    std::vector<Node> nodes;
    std::thread([&nodes] { nodes = MakeNodes(20'000, 32); }).join();
    bool intact = false;
    std::thread([&nodes, &intact] { intact = FreeIntact(nodes); }).join();
    ASSERT_TRUE(intact);
  }
  EXPECT_LE(NodeSlabCount(), before + 20);
}

#if !defined(_WIN32)
// On Windows the module's entry routine is told that a thread ends, and this program, linked from
// the library's objects, is no module.
TEST(NodeHeapThreads, AnEndingThreadGivesBackWhatItKept) {
  EXPECT_TRUE(FreeIntact(MakeNodes(1, 16)));
  const std::size_t before = NodeSlabCount();
  for (int round = 0; round < 200; ++round) {
    std::thread([] { FreeIntact(MakeNodes(600, 160)); }).join();
  }
  // 200 threads that kept two batches each would hold 50 slabs.
  EXPECT_LE(NodeSlabCount(), before + 20);
}
#endif

TEST(NodeHeapThreads, ThreadsExchangeNodesWithoutMixingThemUp) {
  constexpr int kThreads = 4;
  std::vector<std::vector<Node>> given(kThreads);
  for (int round = 0; round < 10; ++round) {
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    std::vector<char> intact(kThreads);
    for (int i = 0; i < kThreads; ++i) {
      threads.emplace_back([&, i] {
        intact[i] = FreeIntact(given[i]);
        given[i] = MakeNodes(3000, 8 + 8 * static_cast<std::size_t>(i));
      });
    }
    for (std::thread& thread : threads) thread.join();
    for (const char kept : intact) ASSERT_TRUE(kept);
    std::rotate(given.begin(), given.begin() + 1, given.end());
  }
  for (const std::vector<Node>& nodes : given) EXPECT_TRUE(FreeIntact(nodes));
}
