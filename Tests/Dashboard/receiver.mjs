// The real receiver with an empty data folder, and what a library says to it.

import {spawn} from 'node:child_process';
import {mkdtemp, rm, writeFile} from 'node:fs/promises';
import {tmpdir} from 'node:os';
import {join} from 'node:path';
import {createInterface} from 'node:readline';

export const password = 'correct horse battery staple';
export const client = {id: 'tests', secret: 'one-for-tests'};

export async function startReceiver() {
    const folder = await mkdtemp(join(tmpdir(), 'wexel-dashboard-'));
    const passwordFile = join(folder, 'password');
    await writeFile(passwordFile, password + '\n');
    const program = spawn(process.env.WEXEL_RECEIVER, ['--data', join(folder, 'data'), '--listen', '127.0.0.1:0',
        '--client', `${client.id}:${client.secret}`, '--admin-password-file', passwordFile], {stdio: ['ignore', 'pipe', 'inherit']});
    const ended = new Promise((resolve) => program.once('exit', resolve));
    const url = await listeningAt(program);
    return {
        url,
        dashboard: url + 'dashboard/',
        folder,
        application: await asLibrary(url),
        async stop() {
            program.kill();
            await ended;
            await rm(folder, {recursive: true});
        },
    };
}

async function listeningAt(program) {
    for await (const line of createInterface({input: program.stdout}))
        if (line.startsWith('Listening on '))
            return line.slice('Listening on '.length);
    throw new Error('the receiver did not start');
}

/// send(report, {screenshot, files}): as the library does, uploads first. Resolves with the answer's status and id.
async function asLibrary(url) {
    const form = new URLSearchParams({grant_type: 'client_credentials', client_id: client.id, client_secret: client.secret});
    const answer = await (await fetch(url + 'auth/oauth2/token', {method: 'POST', body: form})).json();
    const headers = {Authorization: `Bearer ${answer.access_token}`};

    async function upload({name, bytes, type = 'application/octet-stream'}) {
        const body = new FormData();
        body.set('file', new Blob([bytes], {type}), name);
        return (await (await fetch(url + 'api/1.0/files', {method: 'POST', headers, body})).json()).url;
    }

    return {
        async send(report, {screenshot = null, files = [], bundleId = 'org.example.app'} = {}) {
            const body = {...report};
            if (screenshot)
                body.screenshot_url = await upload(screenshot);
            if (files.length)
                body.files = (await Promise.all(files.map(upload))).map((address) => ({url: address}));
            const response = await fetch(`${url}api/1.0/issue_tracking/apps/${bundleId}`,
                {method: 'POST', headers: {...headers, 'Content-Type': 'application/json'}, body: JSON.stringify(body)});
            return {status: response.status, ...await response.json().catch(() => ({}))};
        },
    };
}

/// One grey pixel as PNG.
export const picture = {name: 'screenshot.png', type: 'image/png', bytes: Buffer.from(
    'iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAAAAAA6fptVAAAACklEQVR42mPYAAAAsgCx+IKSpwAAAABJRU5ErkJggg==', 'base64')};
