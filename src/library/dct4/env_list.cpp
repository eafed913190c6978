#include "dct4/env_list.h"

EnvList* EnvList___init__(EnvList* node, Arena* arena)
{
    *node = {.item = nullptr, .next = nullptr, .arena = arena};
    return node;
}

void* EnvList_add(EnvList* list, void* item)
{
    EnvList* last = list;
    while (last->next != nullptr)
        last = last->next;
    if (last->item != nullptr) {
        void* const memory = rvngArenaMalloc(list->arena, sizeof(EnvList));
        last->next = EnvList___init__(static_cast<EnvList*>(memory), list->arena);
        last = last->next;
    }
    last->item = static_cast<EnvObject*>(item);
    return item;
}

void* EnvList_get(const EnvList* list, std::int32_t index)
{
    const EnvList* node = list;
    std::int32_t steps = 0;
    while (steps < index && node != nullptr) {
        node = node->next;
        ++steps;
    }
    return steps == index ? node->item : nullptr;
}

void EnvList_freeChildren(EnvList* list)
{
    for (const EnvList* node = list; node != nullptr; node = node->next) {
        EnvObject* const item = node->item;
        if (item == nullptr)
            continue;
        item->delFn(item);
        rvngArenaFree(node->arena, item,
                      static_cast<std::uint64_t>(std::int64_t{item->objectSize}));
    }
}

void EnvList___del__(EnvList* list)
{
    for (EnvList* node = list->next; node != nullptr;) {
        EnvList* const next = node->next;
        rvngArenaFree(list->arena, node, sizeof(EnvList));
        node = next;
    }
}

std::uint64_t EnvList_add_mem(std::int32_t count)
{
    return static_cast<std::uint64_t>(std::int64_t{count}) * rvngAlignSize32Bytes(sizeof(EnvList));
}
