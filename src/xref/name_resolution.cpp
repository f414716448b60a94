#include "xref/name_resolution.h"

#include <cstddef>
#include <map>
#include <string>
#include <tuple>
#include <utility>

namespace hlyd {

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// The declarations of every member, found by name.
class Scopes {
public:
    explicit Scopes(const std::vector<MemberNames>& members) : members_(members) {
        for (std::size_t m = 0; m < members.size(); ++m) {
            moduleOf_.emplace(members[m].module, m);
            for (std::size_t d = 0; d < members[m].declared.size(); ++d) add(m, d);
        }
    }

    // The declaration (member, index) a use refers to, or {kNone, kNone}.
    std::pair<std::size_t, std::size_t> resolve(std::size_t member, const UseCandidate& use) const {
        if (use.qualified) return qualified(member, use);
        if (auto local = find(locals_, {member, use.proc, use.key}); local != kNone) return {kNone, kNone};
        if (use.written && use.proc != kModuleLevel) {
            // A Function's or Property Get's own name, assigned inside it, is the value it returns.
            std::size_t own = members_[member].procDeclarations[static_cast<std::size_t>(use.proc)];
            if (members_[member].declared[own].key == use.key) return {member, own};
        }
        if (auto own = pick(member, use, find(moduleLevel_, {member, kModuleLevel, use.key})); own.first != kNone)
            return own;
        auto found = public_.find(use.key);
        if (found == public_.end() || found->second.size() != 1) return {kNone, kNone};
        return pick(found->second.front().first, use, found->second.front().second);
    }

private:
    using Key = std::tuple<std::size_t, int, NameKey>;

    void add(std::size_t m, std::size_t d) {
        const DeclaredName& name = members_[m].declared[d];
        if (name.proc != kModuleLevel) {
            locals_.emplace(Key{m, name.proc, name.key}, d);
            return;
        }
        moduleLevel_.emplace(Key{m, kModuleLevel, name.key}, d);
        if (name.entry.kind == NameKind::kEnumMember) enumMembers_.emplace(Key{m, enumOf(m, d), name.key}, d);
        if (name.entry.kind == NameKind::kEnum) enums_.emplace(name.key, std::pair{m, d});
        if (visibleEverywhere(m, name)) {
            auto& list = public_[name.key];
            // The accessors of one property are one name.
            bool same = !list.empty() && list.back().first == m;
            if (!same) list.emplace_back(m, d);
        }
    }

    // The Enum whose member the declaration is: the nearest Enum declared before it.
    int enumOf(std::size_t m, std::size_t d) const {
        for (std::size_t e = d; e-- > 0;)
            if (members_[m].declared[e].entry.kind == NameKind::kEnum) return static_cast<int>(e);
        return kModuleLevel;
    }

    bool visibleEverywhere(std::size_t m, const DeclaredName& name) const {
        if (!name.entry.isPublic) return false;
        switch (name.entry.kind) {
            case NameKind::kEnum:
            case NameKind::kEnumMember:
            case NameKind::kType: return true;
            default: return members_[m].standardModule;
        }
    }

    static std::size_t find(const std::multimap<Key, std::size_t>& map, const Key& key) {
        auto it = map.find(key);
        return it == map.end() ? kNone : it->second;
    }

    // Among a property's accessors, the one the use calls: Get to read, Let or Set to write.
    std::pair<std::size_t, std::size_t> pick(std::size_t m, const UseCandidate& use, std::size_t first) const {
        if (first == kNone) return {kNone, kNone};
        auto [from, to] = moduleLevel_.equal_range(Key{m, kModuleLevel, use.key});
        for (auto it = from; it != to; ++it) {
            NameKind kind = members_[m].declared[it->second].entry.kind;
            bool wanted = use.written ? (kind == NameKind::kPropertyLet || kind == NameKind::kPropertySet)
                                      : kind == NameKind::kPropertyGet;
            if (wanted) return {m, it->second};
        }
        return {m, first};
    }

    std::pair<std::size_t, std::size_t> qualified(std::size_t member, const UseCandidate& use) const {
        if (use.qualifiedByMe) return pick(member, use, find(moduleLevel_, {member, kModuleLevel, use.key}));
        if (auto module = moduleOf_.find(use.qualifier); module != moduleOf_.end()) {
            std::size_t m = module->second;
            auto found = pick(m, use, find(moduleLevel_, {m, kModuleLevel, use.key}));
            // A form's controls are seen from everywhere through the form's name.
            const IndexedName* entry = found.first == kNone ? nullptr : &members_[m].declared[found.second].entry;
            bool seen = found.first == member || (entry && (entry->isPublic || entry->kind == NameKind::kControl));
            return seen ? found : std::pair{kNone, kNone};
        }
        // An Enum's name, the member's own or a Public one, before one of its members.
        auto [from, to] = enums_.equal_range(use.qualifier);
        for (auto it = from; it != to; ++it) {
            auto [m, e] = it->second;
            if (m != member && !members_[m].declared[e].entry.isPublic) continue;
            if (std::size_t d = find(enumMembers_, {m, static_cast<int>(e), use.key}); d != kNone) return {m, d};
        }
        return {kNone, kNone};
    }

    const std::vector<MemberNames>& members_;
    std::map<NameKey, std::size_t> moduleOf_;
    std::multimap<Key, std::size_t> locals_, moduleLevel_, enumMembers_;
    std::multimap<NameKey, std::pair<std::size_t, std::size_t>> enums_;  // by the Enum's name
    std::map<NameKey, std::vector<std::pair<std::size_t, std::size_t>>> public_;
};

}  // namespace

NameIndex resolveNames(std::vector<MemberNames> members) {
    Scopes scopes(members);
    // Where each member's indexed declarations land in the index.
    NameIndex index;
    std::vector<std::vector<std::size_t>> slot(members.size());
    for (std::size_t m = 0; m < members.size(); ++m) {
        slot[m].assign(members[m].declared.size(), kNone);
        for (std::size_t d = 0; d < members[m].declared.size(); ++d) {
            if (members[m].declared[d].proc != kModuleLevel) continue;
            slot[m][d] = index.names.size();
            index.names.push_back(members[m].declared[d].entry);
        }
    }
    for (std::size_t m = 0; m < members.size(); ++m)
        for (const UseCandidate& use : members[m].uses) {
            auto [member, declared] = scopes.resolve(m, use);
            if (member == kNone || slot[member][declared] == kNone) continue;
            const std::string& proc =
                    use.proc == kModuleLevel ? std::string() : members[m].procNames[static_cast<std::size_t>(use.proc)];
            index.names[slot[member][declared]].uses.push_back(
                    {{members[m].file, use.line, proc, use.token}, use.written});
        }
    return index;
}

}  // namespace hlyd
