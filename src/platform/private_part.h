#pragma once
// A part of the Session that one file alone reads. Its type stays in that file: the file defines
// the type in namespace hlyd and says `HLYD_PRIVATE_PART(Type)` once, which makes and frees it.
#include <memory>

namespace hlyd {

template <class T>
T* newPrivatePart();
template <class T>
void deletePrivatePart(T* part);

template <class T>
class PrivatePart {
public:
    PrivatePart() : part_(newPrivatePart<T>()) {}
    T& operator*() const { return *part_; }
    T* operator->() const { return part_.get(); }

private:
    struct Deleter {
        void operator()(T* part) const { deletePrivatePart(part); }
    };
    std::unique_ptr<T, Deleter> part_;
};

// The argument names a type, which parentheses would turn into an expression.
// NOLINTBEGIN(bugprone-macro-parentheses)
#define HLYD_PRIVATE_PART(Type)                 \
    template <>                                 \
    Type* newPrivatePart<Type>() {              \
        return new Type;                        \
    }                                           \
    template <>                                 \
    void deletePrivatePart<Type>(Type * part) { \
        delete part;                            \
    }
// NOLINTEND(bugprone-macro-parentheses)

}  // namespace hlyd
