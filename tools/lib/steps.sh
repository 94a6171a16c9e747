# Sourced by ./check and ./demo: quiet steps with their time; the output of a
# step that fails is shown.

logs=build/logs
mkdir -p "$logs"
export CMAKE_CXX_COMPILER_LAUNCHER=ccache
export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$(mktemp -d)}
jobs=$(nproc)

# step NAME COMMAND...: runs the command, its output goes to build/logs/NAME.log
step() {
    local name=$1 start=$SECONDS
    shift
    printf '%-28s' "$name"
    if "$@" >"$logs/${name// /-}.log" 2>&1; then
        printf 'ok    %4d s\n' $((SECONDS - start))
    else
        printf 'FAILED (%s)\n' "$logs/${name// /-}.log"
        tail -n "${STEP_TAIL:-60}" "$logs/${name// /-}.log"
        return 1
    fi
}

# configure_build PRESET TARGET...
configure_build() {
    local preset=$1
    shift
    if [ ! -f "build/$preset/build.ninja" ]; then
        step "configure $preset" cmake --preset "$preset"
    fi
    step "build $preset" cmake --build "build/$preset" -j "$jobs" --target "$@"
}
