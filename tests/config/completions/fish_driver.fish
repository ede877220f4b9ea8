# fish fish_driver.fish SCRIPT LINE...: prints each line after "> ", then its completions with their help.
source $argv[1]; or exit
for line in $argv[2..-1]
    echo "> $line"
    complete -C $line
end
