# Completion for fish: value-object itself says what may stand next.

function __value_object_candidates
    set -l words (commandline --tokenize --cut-at-cursor --current-process)
    set -l current (commandline --cut-at-cursor --current-token)
    set -l candidates (value-object complete $words[2..] (string trim --left --chars '\'"' -- $current) 2> /dev/null)
    if set -q candidates[1]
        printf '%s\n' $candidates
    else
        __fish_complete_path $current
    end
end

complete --command value-object --no-files --arguments '(__value_object_candidates)'
