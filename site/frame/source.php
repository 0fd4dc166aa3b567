<?php

/** A page's own source, with the properties and methods it uses listed above it. */

declare(strict_types=1);

foreach (["default", "html", "keyword", "string", "comment"] as $part) {
    ini_set("highlight.$part", "code-$part");
}

/** The names that follow "->" in the source, each once, in the order of their first use. */
function names_used(string $source): array
{
    preg_match_all('/->(\w+)/', $source, $found);
    return array_values(array_unique($found[1]));
}

/**
 * The file in colours, with ordinary blanks and line ends, so that what is copied from the page is PHP again. The colours
 * are those of classes in site.css, which follow light and dark: the policy of the site allows no style in a page.
 */
function coloured_source(string $file): string
{
    $source = str_replace(["\n", "<br />", "&nbsp;"], ["", "\n", " "], highlight_file($file, true));
    return preg_replace('/style="color: (code-[a-z]+)"/', 'class="$1"', $source);
}

function write_source(string $file): void
{
    $names = array_map(fn (string $name): string => "<code>" . html($name) . "</code>", names_used(file_get_contents($file)));
    echo '<p class="uses">Used here: ', implode(" ", $names), "</p>\n";
    echo '<details class="source" open><summary>Source of this page</summary>', "\n";
    echo '<pre tabindex="0" role="region" aria-label="Source of this page">', coloured_source($file), "</pre></details>\n";
}
