#include "generator/order/orders.h"

#include <algorithm>
#include <set>

namespace rvn::generator
{

namespace
{

bool computes(const Graph& graph, int node)
{
    return graph.nodes[node].op != Op::Load;
}

// The operands of a node, each once.
std::vector<int> distinctOperands(const Graph& graph, int node)
{
    const std::span<const int> all = operands(graph.nodes[node]);
    std::vector<int> distinct(all.begin(), all.end());
    if (distinct.size() == 2 && distinct[0] == distinct[1])
        distinct.pop_back();
    return distinct;
}

std::vector<std::vector<int>> usersOf(const Graph& graph)
{
    std::vector<std::vector<int>> users(graph.nodes.size());
    for (int node = 0; node < std::ssize(graph.nodes); ++node)
        for (const int operand : distinctOperands(graph, node))
            users[operand].push_back(node);
    return users;
}

class Bisection
{
public:
    Bisection(const Graph& graph, Side first)
        : graph_(graph), users_(usersOf(graph)), first_(first), part_(graph.nodes.size()),
          colour_(graph.nodes.size())
    {
    }

    Order run()
    {
        place(constructionOrder(graph_));
        return order_;
    }

private:
    static constexpr std::ptrdiff_t smallPart = 64;

    // Nodes of a part carry its number in part_, so that its bounds are known without a search.
    void place(const Order& part)
    {
        if (std::ssize(part) <= smallPart) {
            order_.insert(order_.end(), part.begin(), part.end());
            return;
        }
        ++number_;
        for (const int node : part)
            part_[node] = number_;
        const std::vector<Order> pieces = piecesOf(part);
        for (const Order& piece : pieces.size() > 1 ? pieces : halvesOf(part))
            place(piece);
    }

    bool isInside(int node) const { return part_[node] == number_; }

    // The pieces that no edge joins, in construction order.
    std::vector<Order> piecesOf(const Order& part) const
    {
        std::vector<Order> pieces;
        std::set<int> left(part.begin(), part.end());
        while (!left.empty()) {
            Order piece{*left.begin()};
            left.erase(left.begin());
            const auto take = [&](int node) {
                if (left.erase(node) != 0)
                    piece.push_back(node);
            };
            for (std::size_t i = 0; i < piece.size(); ++i) {
                const int node = piece[i];
                std::ranges::for_each(operands(graph_.nodes[node]), take);
                std::ranges::for_each(users_[node], take);
            }
            std::ranges::sort(piece);
            pieces.push_back(piece);
        }
        return pieces;
    }

    std::vector<Order> halvesOf(const Order& part)
    {
        enum Colour : std::uint8_t { None, Early, Late };
        for (const int node : part)
            colour_[node] = None;
        const auto isReached = [&](std::span<const int> neighbours, Colour colour) {
            return std::ranges::all_of(neighbours, [&](int neighbour) {
                return !isInside(neighbour) || colour_[neighbour] == colour;
            });
        };
        Order rest = part;
        for (Colour turn = first_ == Side::Inputs ? Early : Late; !rest.empty();
             turn = turn == Early ? Late : Early) {
            Order reached;
            Order others;
            for (const int node : rest) {
                const bool isNext = turn == Early ? isReached(operands(graph_.nodes[node]), Early)
                                                  : isReached(users_[node], Late);
                (isNext ? reached : others).push_back(node);
            }
            for (const int node : reached)
                colour_[node] = turn;
            rest = others;
        }
        std::vector<Order> halves(2);
        for (const int node : part)
            halves[colour_[node] == Late].push_back(node);
        return halves;
    }

    const Graph& graph_;
    std::vector<std::vector<int>> users_;
    Side first_;
    std::vector<int> part_;
    std::vector<std::uint8_t> colour_;
    int number_ = 0;
    Order order_;
};

} // namespace

Order constructionOrder(const Graph& graph)
{
    Order order;
    for (int node = 0; node < std::ssize(graph.nodes); ++node)
        if (computes(graph, node))
            order.push_back(node);
    return order;
}

Order bisectionOrder(const Graph& graph, Side first)
{
    return Bisection(graph, first).run();
}

} // namespace rvn::generator
