# Shared by setup.sh and test.sh: configure and build one tree, quietly and incrementally.
# tev_build DIR [cmake options...]
tev_build() {
  local dir=$1; shift
  local launcher=()
  command -v ccache >/dev/null && launcher=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  cmake -S "$TEV_ROOT" -B "$dir" "${launcher[@]}" "$@" >"$dir.configure.log" 2>&1 || {
    cat "$dir.configure.log"; return 1; }
  cmake --build "$dir" -j "$(nproc)" 2>&1 | grep -v -E '^\[ *[0-9]+%\]|^(Scanning|Consolidate|Automatic MOC|Built target)' || true
  # grep swallowed the build's status: ask again, which is instant when it succeeded.
  cmake --build "$dir" -j "$(nproc)" >/dev/null
}

# Runs a command under a private X server with a software OpenGL screen.
tev_xvfb() {
  export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$(mktemp -d)}
  chmod 700 "$XDG_RUNTIME_DIR" 2>/dev/null || true
  # -noreset: the server would otherwise reset whenever its last client leaves, and refuse the
  # connections of the next test process while it does.
  xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" "$@"
}
