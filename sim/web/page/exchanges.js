// The exchanges that the page knows, newest first, and those of them that pass the filter.
const kMost = 10000;

export class Exchanges {
    constructor() {
        this.clear();
        this.accepts = () => true;
    }

    clear() {
        this.all = []; // oldest first, so that what is new goes to the end
        this.shown = [];
    }

    // Gives the number of lines that were added to those shown.
    add(exchanges) {
        const passing = exchanges.filter(this.accepts);
        this.all.push(...exchanges);
        this.shown.push(...passing);
        if (this.all.length > kMost) {
            this.all = this.all.slice(-kMost);
            const oldest = this.all[0].id;
            this.shown = this.shown.filter(({id}) => id >= oldest);
        }
        return passing.length;
    }

    // Those from before the oldest one, newest first.
    addOlder(exchanges) {
        const fresh = exchanges.slice(0, kMost - this.all.length).reverse();
        this.all = fresh.concat(this.all);
        this.shown = fresh.filter(this.accepts).concat(this.shown);
    }

    filter(accepts) {
        this.accepts = accepts;
        this.shown = this.all.filter(accepts);
    }

    oldest() { return this.all[0]?.id; }
    isFull() { return this.all.length >= kMost; }
    count() { return this.shown.length; }
    at(line) { return this.shown[this.shown.length - 1 - line]; } // line 0 is the newest
    lineOf(id) {
        const index = this.shown.findIndex((exchange) => exchange.id === id);
        return index < 0 ? -1 : this.shown.length - 1 - index;
    }
}
