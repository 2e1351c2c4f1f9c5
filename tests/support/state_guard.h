// Saves the named slices of the shared state and puts them back when the
// scope ends, so a test leaves the state as it found it:
//     状态守卫<计算状态, 变量状态> 守;
// A fixture holds one as a member; a test that needs a fresh collector calls
// 清除计算状态() itself.
#pragma once

#include <tuple>
#include <type_traits>

template <auto&... 块>
class 状态守卫 {
public:
    状态守卫() = default;
    ~状态守卫() { std::tie(块...) = 旧_; }
    状态守卫(const 状态守卫&) = delete;
    状态守卫& operator=(const 状态守卫&) = delete;

private:
    std::tuple<std::remove_cvref_t<decltype(块)>...> 旧_{块...};
};
