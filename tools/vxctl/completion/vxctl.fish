# Completion of vxctl for fish: the tool itself knows what may follow.
function __vxctl_complete
    set -l words (commandline -opc) (commandline -ct)
    for line in ($words[1] --complete $words[2..-1] 2>/dev/null)
        if test "$line" = ":file"
            __fish_complete_path (commandline -ct)
        else
            string replace ' ' \t -- $line
        end
    end
end
complete -c vxctl -f -a '(__vxctl_complete)'
