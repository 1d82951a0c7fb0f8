// Asks again and again while the page is shown; never twice at once.

const interval = 2000; // milliseconds

/// `ask(signal)` may take its time. At once when the page is shown again.
export function keepAsking(ask, signal) {
    let timer = 0;
    let isAsking = false;
    async function turn() {
        clearTimeout(timer);
        if (document.hidden || isAsking || signal.aborted)
            return;
        isAsking = true;
        try {
            await ask(signal);
        } catch {
            // it was left, or the receiver said no: the next turn asks again
        }
        isAsking = false;
        if (!signal.aborted)
            timer = setTimeout(turn, interval);
    }
    timer = setTimeout(turn, interval);
    document.addEventListener('visibilitychange', turn, {signal});
    signal.addEventListener('abort', () => clearTimeout(timer));
}
