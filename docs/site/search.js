// Finds the sections of the manual that have all words of the search; those with a word in their heading come first.
const box = document.getElementById("search");
const list = document.getElementById("found");
const maxFound = 12;

// The text around the first word, marked.
function excerpt(text, word) {
    const place = text.toLowerCase().indexOf(word);
    const part = document.createElement("small");
    const start = Math.max(place - 40, 0);
    if (place < 0) {
        part.textContent = text.slice(0, 90);
    } else {
        const mark = document.createElement("mark");
        mark.textContent = text.slice(place, place + word.length);
        part.append((start > 0 ? "…" : "") + text.slice(start, place), mark, text.slice(place + word.length, place + 60));
    }
    return part;
}

function search() {
    const words = box.value.toLowerCase().split(/\s+/).filter((word) => word.length > 0);
    const found = [];
    for (const [location, title, text] of words.length > 0 ? searchIndex : []) {
        const heading = title.toLowerCase();
        const all = heading + " " + text.toLowerCase();
        if (words.every((word) => all.includes(word)))
            found.push({location, title, text, rank: words.filter((word) => heading.includes(word)).length});
    }
    found.sort((one, other) => other.rank - one.rank);
    list.replaceChildren(...found.slice(0, maxFound).map(({location, title, text}) => {
        const link = document.createElement("a");
        link.href = box.dataset.base + "/" + location;
        link.append(title, excerpt(text, words[0]));
        const item = document.createElement("li");
        item.append(link);
        return item;
    }));
    if (words.length > 0 && found.length === 0)
        list.append(Object.assign(document.createElement("li"), {textContent: "Nothing found."}));
    list.hidden = words.length === 0;
}

box.addEventListener("input", search);
box.addEventListener("keydown", (event) => {
    if (event.key === "Escape")
        box.value = "", search();
});
search();
