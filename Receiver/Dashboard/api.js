// The receiver's answers. Reading waits and tries again by itself while the receiver is away or busy, and says so in
// `connection`; changing is tried once, for its outcome would be unknown.

class ApiError extends Error {
    constructor(status, text, retryAfter = 0) {
        super(text);
        this.status = status; // 0: no answer
        this.retryAfter = retryAfter; // seconds
    }
}

/// Events "trouble" ({detail: ApiError}), "restored", "session-ended" and, by the reader's own wish, "logged-out".
export const connection = new EventTarget();

const longestWait = 15; // seconds
const noContent = 204;
const noAnswer = () => new ApiError(0, 'The receiver does not answer.');
let csrf = '';
let isTroubled = false;

export function setCsrf(token) {
    csrf = token;
}

/// Resolves once there is an answer; rejects with ApiError for one that says no, and with AbortError.
export async function get(path, signal) {
    for (let attempt = 0; ; attempt++) {
        try {
            const answer = await request('GET', path, undefined, signal);
            report(null);
            return answer;
        } catch (error) {
            if (!(error instanceof ApiError))
                throw error;
            report(mayPass(error) ? error : null);
            if (!mayPass(error))
                throw error;
            await pause(Math.min(longestWait, error.retryAfter || 2 ** attempt), signal);
        }
    }
}

/// A refused token did nothing: another tab may have logged in anew, and this one takes its token.
export async function change(method, path, body = {}) {
    const sent = csrf;
    try {
        return await request(method, path, body);
    } catch (error) {
        const session = error.status === 403 ? await request('GET', 'session').catch(() => null) : null;
        if (!session || session.csrf === sent)
            throw error;
        setCsrf(session.csrf);
        return request(method, path, body);
    }
}

/// Whether the same request may succeed later: the receiver, or what stands before it, is away or busy.
export function mayPass({status}) {
    return [0, 429, 502, 503, 504].includes(status);
}

async function request(method, path, body, signal) {
    const options = {method, signal, headers: {Accept: 'application/json'}, cache: 'no-store'};
    if (method !== 'GET') {
        options.headers['X-CSRF-Token'] = csrf;
        options.headers['Content-Type'] = 'application/json';
        options.body = JSON.stringify(body);
    }
    let response;
    try {
        response = await fetch('api/' + path, options);
    } catch (error) {
        throw error.name === 'AbortError' ? error : noAnswer();
    }
    return read(response, path);
}

async function read(response, path) {
    const answer = await response.json().catch((error) => {
        if (error.name === 'AbortError')
            throw error;
        return null;
    });
    if (response.ok && answer === null && response.status !== noContent)
        throw noAnswer(); // it was cut in the middle
    if (response.ok)
        return answer;
    if (response.status === 401 && path !== 'session')
        connection.dispatchEvent(new Event('session-ended'));
    const text = typeof answer?.error === 'string' ? answer.error : `The receiver answered ${response.status}.`;
    throw new ApiError(response.status, text, Number(response.headers.get('Retry-After')) || 0);
}

function report(error) {
    if (error)
        connection.dispatchEvent(new CustomEvent('trouble', {detail: error}));
    else if (isTroubled)
        connection.dispatchEvent(new Event('restored'));
    isTroubled = error !== null;
}

/// Ends early when the machine is online again, or the page is shown again.
function pause(seconds, signal) {
    return new Promise((resolve, reject) => {
        const ended = new AbortController();
        const end = (settle, value) => {
            clearTimeout(timer);
            ended.abort();
            settle(value);
        };
        const timer = setTimeout(() => end(resolve), seconds * 1000);
        addEventListener('online', () => end(resolve), {signal: ended.signal});
        document.addEventListener('visibilitychange', () => document.hidden || end(resolve), {signal: ended.signal});
        signal?.addEventListener('abort', () => end(reject, signal.reason), {signal: ended.signal});
    });
}
