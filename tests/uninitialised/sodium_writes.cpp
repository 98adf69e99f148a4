// libsodium isn't compiled under the memory sanitizer, which therefore doesn't see what it writes. The linker
// puts these around its functions. What goes in must have been written, too.
#include <sanitizer/msan_interface.h>

#include <cstddef>

extern "C" {

using Size = unsigned long long;

int __real_crypto_aead_xchacha20poly1305_ietf_encrypt(unsigned char* out, Size* written,
                                                      const unsigned char* text, Size length,
                                                      const unsigned char* added, Size addedLength,
                                                      const unsigned char* none, const unsigned char* nonce,
                                                      const unsigned char* key);
int __wrap_crypto_aead_xchacha20poly1305_ietf_encrypt(unsigned char* out, Size* written,
                                                      const unsigned char* text, Size length,
                                                      const unsigned char* added, Size addedLength,
                                                      const unsigned char* none, const unsigned char* nonce,
                                                      const unsigned char* key);
int __real_crypto_aead_xchacha20poly1305_ietf_decrypt(unsigned char* out, Size* written, unsigned char* none,
                                                      const unsigned char* text, Size length,
                                                      const unsigned char* added, Size addedLength,
                                                      const unsigned char* nonce, const unsigned char* key);
int __wrap_crypto_aead_xchacha20poly1305_ietf_decrypt(unsigned char* out, Size* written, unsigned char* none,
                                                      const unsigned char* text, Size length,
                                                      const unsigned char* added, Size addedLength,
                                                      const unsigned char* nonce, const unsigned char* key);
void __real_randombytes_buf(void* bytes, std::size_t count);
void __wrap_randombytes_buf(void* bytes, std::size_t count);

int __wrap_crypto_aead_xchacha20poly1305_ietf_encrypt(unsigned char* out, Size* written,
                                                      const unsigned char* text, Size length,
                                                      const unsigned char* added, Size addedLength,
                                                      const unsigned char* none, const unsigned char* nonce,
                                                      const unsigned char* key)
{
    __msan_check_mem_is_initialized(text, length);
    const int status = __real_crypto_aead_xchacha20poly1305_ietf_encrypt(out, written, text, length, added,
                                                                         addedLength, none, nonce, key);
    __msan_unpoison(written, sizeof *written);
    __msan_unpoison(out, *written);
    return status;
}

int __wrap_crypto_aead_xchacha20poly1305_ietf_decrypt(unsigned char* out, Size* written, unsigned char* none,
                                                      const unsigned char* text, Size length,
                                                      const unsigned char* added, Size addedLength,
                                                      const unsigned char* nonce, const unsigned char* key)
{
    __msan_check_mem_is_initialized(text, length);
    const int status = __real_crypto_aead_xchacha20poly1305_ietf_decrypt(out, written, none, text, length,
                                                                         added, addedLength, nonce, key);
    __msan_unpoison(written, sizeof *written);
    __msan_unpoison(out, *written);
    return status;
}

void __wrap_randombytes_buf(void* bytes, std::size_t count)
{
    __real_randombytes_buf(bytes, count);
    __msan_unpoison(bytes, count);
}

} // extern "C"
